// The JSON export of a large analysis by the shipped templates, against the JSON library alone writing the same
// document from the same values.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "GoalTable.h"
#include "VEXSTMJSONServices.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"
#include "platform/system/KORSession.h"
#include "tests/support/TemporaryFolder.h"

namespace bench {
namespace {

using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;
using Json = nlohmann::ordered_json;

constexpr int LineCount = 1000;

/// What stands under a key; nothing for a key that has no JSON value.
using Value = std::variant<std::monostate, std::string, double, int, bool>;
using Values = std::vector<std::pair<std::string, Value>>;

/// The values of an analysis, in the order of the keys in the templates.
struct Content {
  Values Attributes;
  std::vector<Values> Lines;
};

Json ShippedTemplate(const std::string& name) {
  std::ifstream file(CATALOGUE_FOLDER "/JSONTemplates/" + name);
  return Json::parse(file);
}

// A value of the type of an example, another one for each row and key.
Value ValueFor(const Json& example, const std::string& key, int row) {
  if (example.is_boolean()) return row % 2 == 0;
  if (example.is_number_float()) return 0.036 * row + static_cast<double>(key.size());
  if (example.is_number()) return row;
  if (!example.is_string()) return {};
  if (key.find("escription") == std::string::npos) return key.substr(0, 3) + std::to_string(row);
  return "Reach to the tool and grasp it, row " + std::to_string(row);
}

Values ValuesFor(const Json& examples, int row) {
  Values values;
  for (const auto& [key, example] : examples.items()) values.emplace_back(key, ValueFor(example, key, row));
  return values;
}

Content MakeContent() {
  Content content;
  content.Attributes = ValuesFor(ShippedTemplate("TAComplete_Template.JSON").at("TAATTRIBUTES"), 1);
  for (auto& [key, value] : content.Attributes) {
    if (key == "PLM_ExternalID") value = "Bench";
  }
  const Json line = ShippedTemplate("TALineAttributes_Template.JSON");
  for (int row = 1; row <= LineCount; ++row) content.Lines.push_back(ValuesFor(line, row));
  return content;
}

template <class Target>
void SetAll(Target& target, const Values& values) {
  for (const auto& [name, value] : values) {
    const KORString key{std::string_view(name)};
    if (const auto* const text = std::get_if<std::string>(&value)) {
      (void)target.SetValue(key, KORUnicodeString(std::string_view(*text)));
    } else if (const auto* const real = std::get_if<double>(&value)) {
      (void)target.SetValue(key, *real);
    } else if (const auto* const integer = std::get_if<int>(&value)) {
      (void)target.SetValue(key, *integer);
    } else if (const auto* const truth = std::get_if<bool>(&value)) {
      (void)target.SetValue(key, static_cast<unsigned char>(*truth ? 1 : 0));
    }
  }
}

Analysis_var AnalysisOf(const Content& content) {
  auto analysis = Analysis_var::Adopt(new VEXTimeAnalysisRepReference);
  SetAll(*analysis, content.Attributes);
  int row = 0;
  for (const Values& values : content.Lines) {
    VEXTimeAnalysisLineData line;
    SetAll(line, values);
    (void)analysis->SetLine(++row, line);
  }
  return analysis;
}

// The export

/// The whole operation, with the reading of the templates and the writing of the file and of the stream.
std::string Export(const Analysis_var& analysis) {
  analysis->GetContent().Streams = {};
  KORListValKORBaseUnknown_var list;
  list.Append(analysis);
  if (VEXSTMJSONServices::CreateAndUpdateJSONOnTA(list) != S_OK) RefuseToCompare("the export failed");
  const KORStream* const stream = analysis->GetContent().Streams.Find({"JSON", "Bench"});
  if (stream == nullptr) RefuseToCompare("there is no stream");
  return *stream->Bytes;
}

// The library alone

Json JsonOf(const Value& value) {
  return std::visit(
      [](const auto& held) -> Json {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>) {
          return nullptr;
        } else {
          return held;
        }
      },
      value);
}

/// As one writes it: key by key.
Json ObjectOf(const Values& values) {
  Json object = Json::object();
  for (const auto& [key, value] : values) object[key] = JsonOf(value);
  return object;
}

/// The same from a copy of an object that has the keys already, so that no key is looked for.
Json ObjectFrom(Json object, const Values& values) {
  auto value = values.begin();
  for (auto& [key, place] : object.get_ref<Json::object_t&>()) place = JsonOf((value++)->second);
  return object;
}

Json DocumentOf(const Content& content) {
  Json document = Json::object();
  document["TAATTRIBUTES"] = ObjectOf(content.Attributes);
  Json lines = Json::array();
  for (const Values& values : content.Lines) lines.push_back(ObjectOf(values));
  document["TALINESDETAILS"] = std::move(lines);
  return document;
}

Json DocumentFromCopies(const Content& content) {
  const Json prototype = ObjectOf(content.Lines.front());
  Json document = Json::object();
  document["TAATTRIBUTES"] = ObjectOf(content.Attributes);
  Json lines = Json::array();
  for (const Values& values : content.Lines) lines.push_back(ObjectFrom(prototype, values));
  document["TALINESDETAILS"] = std::move(lines);
  return document;
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  if (!file.flush()) RefuseToCompare("the file cannot be written");
}

// What is measured

void ExportAll(benchmark::State& state, const Analysis_var& analysis) {
  for (auto _ : state) benchmark::DoNotOptimize(Export(analysis));
}

template <class Make>
void WriteByLibrary(benchmark::State& state, const Content& content, const std::string& path, Make make) {
  for (auto _ : state) WriteFile(path, make(content).dump());
}

void DumpAlone(benchmark::State& state, const Content& content) {
  const Json document = DocumentOf(content);
  for (auto _ : state) benchmark::DoNotOptimize(document.dump());
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  const bench::Content content = bench::MakeContent();
  const support::TemporaryFolder folder;
  KORFreshSession session;
  session.SetEnvironment("KORStartupPath", CATALOGUE_FOLDER);
  session.SetEnvironment("KORTemp", KORUnicodeString(folder.Path().c_str()));
  const bench::Analysis_var analysis = bench::AnalysisOf(content);
  const std::string text = bench::Export(analysis);
  if (text != bench::DocumentOf(content).dump()) bench::RefuseToCompare("the document");
  if (text != bench::DocumentFromCopies(content).dump()) bench::RefuseToCompare("the document from copies");
  std::printf("%d lines, %.2f million bytes\n", bench::LineCount, static_cast<double>(text.size()) * 1e-6);

  const auto by_library = [&](auto make) {
    return [&content, path = folder.Path("library.json"), make](benchmark::State& state) {
      bench::WriteByLibrary(state, content, path, make);
    };
  };
  benchmark::RegisterBenchmark("export", bench::ExportAll, analysis);
  benchmark::RegisterBenchmark("library", by_library(bench::DocumentOf));
  benchmark::RegisterBenchmark("library_from_copies", by_library(bench::DocumentFromCopies));
  benchmark::RegisterBenchmark("dump", bench::DumpAlone, content);
  using Bound = bench::Goal::Bound;
  return bench::RunWithGoals(
      count, arguments,
      {{"JSON export / the library alone, key by key", "export", "library", Bound::AtMost, 1.5},
       {"JSON export / the library alone, from copies of an object", "export", "library_from_copies", Bound::AtMost,
        1.5},
       {"JSON export / the dump of the finished document", "export", "dump", Bound::AtMost, 3.0}});
}
