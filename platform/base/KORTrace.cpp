// The trace.
#include "platform/base/KORTrace.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace {

void WriteToStandardError(std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

KORTrace::KORTrace(KORUnicodeString name, KORUnicodeString description, int mode, const KORUnicodeString& destination,
                   int size)
    : _Name(std::move(name)),
      _Description(std::move(description)),
      _Silent(mode == 0),
      _Destination(destination == "STDERR" ? Sink(WriteToStandardError) : Sink()) {
  _Line.reserve(static_cast<std::size_t>(std::max(size, 0)));
}

void KORTrace::TraPutLN(const KORUnicodeString& text) {
  if (_Silent) return;
  const std::lock_guard lock(_Mutex);
  const Sink& sink = _Redirection ? _Redirection : _Destination;
  if (!sink) return;
  _Line.assign(text.Bytes()).push_back('\n');
  sink(_Line);
}

void KORTrace::RedirectTo(Sink sink) {
  const std::lock_guard lock(_Mutex);
  _Redirection = std::move(sink);
}
