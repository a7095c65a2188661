// What the platform calls process-wide, gathered in one object: user, environment, settings, recorder, operating
// system, and the parts that other rooms hang on it.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <typeindex>
#include <typeinfo>
#include <utility>
#include <vector>

#include "platform/base/KORError.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/system/KORFault.h"
#include "platform/system/KORRecord.h"
#include "platform/system/KORSettingRepository.h"

/// A session of the host platform.
///
/// The operations of platform/system work on the current session of the calling thread: the one of the innermost
/// Scope on that thread, else the default session of the process. A fresh session starts with the environment of the
/// process, with nobody logged in, with no settings repository, with a recorder at rest, with the code of the operating
/// system that the library was built for, and without parts. Nothing of a session is left behind at its end. Distinct
/// sessions may serve distinct threads at once; one session serves one thread at a time, and the default session is not
/// to be changed while several threads use it.
///
/// Parts. What a higher room keeps for a session, as its model (KORModel), is a class of its own, of which the session
/// owns one object.
class KORPLATFORM_API KORSession {
 public:
  KORSession();
  /// Destroys the parts, the last one made first, while the session is the current one of the thread.
  ~KORSession();
  KORSession(const KORSession&) = delete;
  KORSession& operator=(const KORSession&) = delete;

  static KORSession& Current();

  /// Makes a session the current one of this thread for the life of the scope. Scopes nest.
  class KORPLATFORM_API Scope {
   public:
    explicit Scope(KORSession& session);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    KORSession* _Before;
  };

  /// The session's part of that class, made by its default constructor when it is first asked for; owned by the
  /// session. A part that asks for another one while it is made is destroyed ahead of that one.
  template <class Part>
  Part& GetPart() {
    if (void* const made = FindPart(typeid(Part)); made != nullptr) return *static_cast<Part*>(made);
    OwnedPart part(new Part, [](void* object) { delete static_cast<Part*>(object); });
    Part& made = *static_cast<Part*>(part.get());
    _Parts.emplace_back(typeid(Part), std::move(part));
    return made;
  }

  /// The user who is logged in, in the form in which reservations name users; empty if nobody is.
  const KORUnicodeString& GetCurrentUserId() const { return _CurrentUserId; }
  void SetCurrentUserId(const KORUnicodeString& user) { _CurrentUserId = user; }

  /// Sets an environment variable of this session; the process's environment stays as it is.
  void SetEnvironment(const std::string& name, const KORUnicodeString& value);
  /// Hides an environment variable of the process from this session.
  void UnsetEnvironment(const std::string& name);
  /// The value of an environment variable; nothing if it is not set.
  std::optional<KORUnicodeString> GetEnvironment(const std::string& name) const;

  /// The repository of that name, made empty if it is not there. Owned by the session.
  KORSettingRepository& AddRepository(const KORUnicodeString& name);
  /// The repository of that name, or null.
  KORSettingRepository* FindRepository(const KORUnicodeString& name);

  KORRecord& GetRecorder() { return _Recorder; }

  /// The platform's code of the operating system: 1 to 3 and 7 are systems with "/" between folders.
  int GetOperatingSystem() const { return _OperatingSystem; }
  void SetOperatingSystem(int code) { _OperatingSystem = code; }

  /// Makes calls of an operation of the platform in this session fail, for tests of what callers do then. What gives a
  /// status, an object or a text in platform/system, platform/model and platform/services can fail so, the lines and
  /// values of a time analysis apart; and so can the making of XML parsers and of volatile parameters.
  ///
  /// operation  its name, as "GetRepReference"; with its class where the name alone would say little, as
  ///            "KORPLMApplicativeContainerServices::Retrieve"
  /// fault      holds from now on, in place of the one before, for one call or until ClearFaults
  ///
  /// Out arguments are left as on a failure of the operation's own, but for a fault of the kind StatusAlone.
  void InjectFault(const std::string& operation, const KORFault& fault) { _Faults[operation] = fault; }
  /// The same with a status, for all calls.
  void InjectFault(const std::string& operation, long status) { InjectFault(operation, KORFault{status}); }
  void ClearFaults() { _Faults.clear(); }
  /// The fault with which this call of the operation is to fail; nothing if it is to do its work. For the operations
  /// (KORPerform); one that holds once is gone then.
  std::optional<KORFault> TakeFault(const char* operation) {
    return _Faults.empty() ? std::nullopt : TakeInjected(operation);  // every operation asks, and mostly there is none
  }

 private:
  using OwnedPart = std::unique_ptr<void, void (*)(void*)>;

  void* FindPart(const std::type_info& part) const;
  std::optional<KORFault> TakeInjected(const char* operation);

  KORUnicodeString _CurrentUserId;
  std::map<std::string, std::optional<KORUnicodeString>> _Environment;
  std::map<KORUnicodeString, std::unique_ptr<KORSettingRepository>> _Repositories;
  std::map<std::string, KORFault, std::less<>> _Faults;
  KORRecord _Recorder;
  int _OperatingSystem;
  std::vector<std::pair<std::type_index, OwnedPart>> _Parts;  // in the order in which they were made
};

/// A fresh session that is the current one of this thread for the life of this object. It starts without an error left
/// on the thread (KORError::KORGetLastError).
class KORFreshSession : public KORSession {
 public:
  KORFreshSession() : _Scope(*this) { KORError::ClearLastError(); }

 private:
  Scope _Scope;
};
