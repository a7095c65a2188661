// The trace.
#include "platform/base/KORTrace.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

void WriteToStandardError(std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stderr);
}

// The traces of the process, in the order in which they were made.
class TracesOfProcess {
 public:
  static TracesOfProcess& Get() {
    // Never destroyed: traces are static objects of their modules, which come and go in no known order.
    static TracesOfProcess* const traces = new TracesOfProcess;
    return *traces;
  }

  void Add(KORTrace* trace) {
    const std::lock_guard lock(_Mutex);
    _Traces.push_back(trace);
  }

  void Remove(const KORTrace* trace) {
    const std::lock_guard lock(_Mutex);
    _Traces.erase(std::find(_Traces.begin(), _Traces.end(), trace));
  }

  KORTrace* Find(const KORUnicodeString& name) {
    const std::lock_guard lock(_Mutex);
    const auto found = std::find_if(_Traces.begin(), _Traces.end(),
                                    [&name](const KORTrace* trace) { return trace->GetName() == name; });
    return found == _Traces.end() ? nullptr : *found;
  }

 private:
  std::mutex _Mutex;  // guards the traces
  std::vector<KORTrace*> _Traces;
};

}  // namespace

KORTrace::KORTrace(KORUnicodeString name, KORUnicodeString description, int mode, KORUnicodeString destination,
                   int size)
    : _Name(std::move(name)),
      _Description(std::move(description)),
      _Mode(mode),
      _Destination(std::move(destination)),
      _Size(size),
      _SinkOfDestination(_Destination == "STDERR" ? Sink(WriteToStandardError) : Sink()) {
  _Line.reserve(static_cast<std::size_t>(std::max(size, 0)));
  TracesOfProcess::Get().Add(this);
}

KORTrace::~KORTrace() {
  TracesOfProcess::Get().Remove(this);
}

KORTrace* KORTrace::Find(const KORUnicodeString& name) {
  return TracesOfProcess::Get().Find(name);
}

void KORTrace::TraPutLN(const KORUnicodeString& text) {
  if (_Mode == 0) return;
  const std::lock_guard lock(_Mutex);
  const Sink& sink = _Redirection ? _Redirection : _SinkOfDestination;
  if (!sink) return;
  _Line.assign(text.Bytes()).push_back('\n');
  sink(_Line);
}

void KORTrace::RedirectTo(Sink sink) {
  const std::lock_guard lock(_Mutex);
  _Redirection = std::move(sink);
}
