// The session recorder: tells whether the session is being captured or replayed.
#pragma once

#include "platform/base/KORExport.h"

class KORPLATFORM_API KORRecord {
 public:
  enum class Mode { Rest, Capture, Replay };

  /// The recorder of the current session; never null, owned by the session.
  static KORRecord* GetMain();

  /// Non-zero while the session is being captured, and while it is being replayed.
  int IsCapture() const { return _Mode == Mode::Capture ? 1 : 0; }
  int IsReplay() const { return _Mode == Mode::Replay ? 1 : 0; }

  void SetMode(Mode mode) { _Mode = mode; }

 private:
  Mode _Mode = Mode::Rest;
};
