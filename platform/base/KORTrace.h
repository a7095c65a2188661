// The trace: lines of text for whoever looks for the cause of a failure.
#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// The trace of one module, made when the module is loaded.
///
/// Safe across threads: a line is written whole, and never inside another line of the same trace. The process knows its
/// traces by their names.
class KORPLATFORM_API KORTrace {
 public:
  /// Takes one line, its line feed included. It is called by one thread at a time, and must not use the trace.
  using Sink = std::function<void(std::string_view line)>;

  /// name         of the trace, unique in the process
  /// description  what the trace tells of
  /// mode         1: lines are written; 0: the trace is silent
  /// destination  "STDERR": standard error. A trace with another destination is silent until it is redirected.
  /// size         length, in bytes, up to which a line is put together without asking for memory; a longer line is
  ///              written whole, too
  KORTrace(KORUnicodeString name, KORUnicodeString description, int mode, KORUnicodeString destination, int size);
  KORTrace(const KORTrace&) = delete;
  KORTrace& operator=(const KORTrace&) = delete;
  ~KORTrace();

  /// The trace of that name, with no hold on it: it is there from its making to its end. Null if the process has none;
  /// the one made first if the name should not be unique. It can be called from static initialisers.
  static KORTrace* Find(const KORUnicodeString& name);

  const KORUnicodeString& GetName() const { return _Name; }
  const KORUnicodeString& GetDescription() const { return _Description; }
  /// What it was made with.
  int GetMode() const { return _Mode; }
  const KORUnicodeString& GetDestination() const { return _Destination; }
  int GetSize() const { return _Size; }

  /// Writes the text and a line feed. Line feeds inside the text are written as they stand.
  void TraPutLN(const KORUnicodeString& text);

  /// Sends the lines to `sink` from now on; null sends them to the trace's own destination again.
  void RedirectTo(Sink sink);

 private:
  const KORUnicodeString _Name;
  const KORUnicodeString _Description;
  const int _Mode;
  const KORUnicodeString _Destination;
  const int _Size;
  const Sink _SinkOfDestination;

  std::mutex _Mutex;  // guards what follows
  Sink _Redirection;
  std::string _Line;  // the line that is being written; keeps its memory for the next one
};
