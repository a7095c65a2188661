// What the platform calls process-wide, gathered in one object.
#include "platform/system/KORSession.h"

#include <cstdlib>

namespace {

// The platform's code for the family of systems that this library is built for: "/" between folders.
constexpr int HostOperatingSystem = 7;

KORSession*& InnermostSession() {
  thread_local KORSession* session = nullptr;
  return session;
}

}  // namespace

KORSession::KORSession() : _OperatingSystem(HostOperatingSystem) {
}

KORSession::~KORSession() {
  const Scope scope(*this);
  while (!_Parts.empty()) {
    const OwnedPart last = std::move(_Parts.back().second);
    _Parts.pop_back();
  }
}

void* KORSession::FindPart(const std::type_info& part) const {
  for (const auto& [type, owned] : _Parts) {
    if (type == part) return owned.get();
  }
  return nullptr;
}

KORSession& KORSession::Current() {
  static KORSession process_session;
  KORSession* const innermost = InnermostSession();
  return innermost == nullptr ? process_session : *innermost;
}

KORSession::Scope::Scope(KORSession& session) : _Before(InnermostSession()) {
  InnermostSession() = &session;
}

KORSession::Scope::~Scope() {
  InnermostSession() = _Before;
}

void KORSession::SetEnvironment(const std::string& name, const KORUnicodeString& value) {
  _Environment[name] = value;
}

void KORSession::UnsetEnvironment(const std::string& name) {
  _Environment[name] = std::nullopt;
}

std::optional<KORUnicodeString> KORSession::GetEnvironment(const std::string& name) const {
  if (const auto found = _Environment.find(name); found != _Environment.end()) return found->second;
  const char* value = std::getenv(name.c_str());
  return value == nullptr ? std::nullopt : std::optional<KORUnicodeString>(value);
}

KORSettingRepository& KORSession::AddRepository(const KORUnicodeString& name) {
  std::unique_ptr<KORSettingRepository>& repository = _Repositories[name];
  if (repository == nullptr) repository = std::make_unique<KORSettingRepository>();
  return *repository;
}

KORSettingRepository* KORSession::FindRepository(const KORUnicodeString& name) {
  const auto found = _Repositories.find(name);
  return found == _Repositories.end() ? nullptr : found->second.get();
}

std::optional<KORFault> KORSession::TakeInjected(const char* operation) {
  const auto found = _Faults.find(std::string_view(operation));
  if (found == _Faults.end()) return std::nullopt;
  const KORFault fault = found->second;
  if (fault.Holds == KORFault::Life::Once) _Faults.erase(found);
  return fault;
}
