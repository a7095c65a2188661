// The answers of one run.
#include "tools/Answers.h"

#include <ostream>

#include "tools/LineReader.h"

namespace tool {

void Answers::Tell(const Failure& failure) {
  _Out.flush();
  if (_Prepare) _Prepare();
  _Err << "timeanalysis: " << failure.what() << '\n';
  Note(failure.GetStatus());
}

void ForEachText(const CommandLine& line, const Surroundings& surroundings,
                 const std::function<void(std::string_view text, std::size_t number)>& work) {
  if (!line.FromInput) {
    for (const std::string& text : line.Texts) work(text, 0);
    return;
  }
  LineReader reader(surroundings.In, [&surroundings] { surroundings.Out.flush(); });
  for (std::string_view text; reader.Next(text);) work(text, reader.LineNumber());
}

}  // namespace tool
