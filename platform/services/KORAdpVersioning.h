// What the database knows of the revisions of objects.
#pragma once

#include <vector>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUuid.h"
#include "platform/model/KORPLMComponent.h"

/// Takes the errors of one request.
class KORIAdpErrorMonitor : public KORInterface<KORIAdpErrorMonitor> {
 public:
  static constexpr const char* InterfaceName = "KORIAdpErrorMonitor";
};
using KORIAdpErrorMonitor_var = KORHandle<KORIAdpErrorMonitor>;

struct KORPLATFORM_API KORAdpErrorMonitorFactory {
  /// identifier  of the request
  /// monitor     [out] a new monitor, with a reference that the caller releases; null on failure
  /// S_OK.
  static long CreateErrorMonitor(const KORUuid& identifier, KORIAdpErrorMonitor*& monitor);
};

/// What the database knows of the major revisions of an object.
class KORPLATFORM_API KORAdpMajorInformation {
 public:
  KORAdpMajorInformation() = default;
  explicit KORAdpMajorInformation(bool is_last) : _IsLast(is_last) {}

  /// is_last  [out] 1 if the object is the last major revision, else 0, and 0 on failure
  /// S_OK.
  long IsLastMajor(unsigned char& is_last) const;

 private:
  bool _IsLast = false;
};

/// What the database knows of one object.
class KORPLATFORM_API KORAdpVersioningInfo {
 public:
  KORAdpVersioningInfo(const KORIAdpPLMIdentificator_var& element, bool is_last_major)
      : _Element(element), _Major(is_last_major) {}

  /// element  [out] which object this is of, with a reference that the caller releases; null on failure
  /// S_OK; E_FAIL if it was made without one.
  long GetElement(KORIAdpPLMIdentificator*& element) const;
  /// S_OK; `information` is left as it was on failure.
  long GetMajorVersioningInformation(KORAdpMajorInformation& information) const;

  friend bool operator==(const KORAdpVersioningInfo& left, const KORAdpVersioningInfo& right) {
    return left._Element == right._Element;
  }

 private:
  KORIAdpPLMIdentificator_var _Element;
  KORAdpMajorInformation _Major;
};
using KORListValKORAdpVersioningInfo = KORList<KORAdpVersioningInfo>;

struct KORPLATFORM_API KORAdpProtectedVersioningServices {
  /// Asks the database once for many objects: appends one information for each identificator whose object the database
  /// knows (KORRepContent::IsInDatabase), in the order of KORVersioningDatabase.
  ///
  /// major, minor  seek modes; passed as 1 and 1
  /// monitor       of the request; may be null
  /// S_OK; E_INVALIDARG, with nothing appended, for a null identificator.
  static long GetVersioningInfo(const KORListPtrKORIAdpPLMIdentificator& identificators, int major, int minor,
                                KORListValKORAdpVersioningInfo& infos, KORIAdpErrorMonitor* monitor);
};

/// The database behind a session's versioning services; a part of the session.
class KORPLATFORM_API KORVersioningDatabase {
 public:
  enum class Order { AsAsked, Reversed };

  /// That of the current session; owned by it.
  static KORVersioningDatabase& Current();

  /// How often the database was asked, with or without success.
  int GetQueryCount() const { return _QueryCount; }
  /// The order in which it answers.
  void SetOrder(Order order) { _Order = order; }
  /// From now on every answer also has an information on this object, behind the others, asked for or not.
  void AnswerBesides(const KORAdpVersioningInfo& information) { _Besides.push_back(information); }

 private:
  friend struct KORAdpProtectedVersioningServices;

  int _QueryCount = 0;
  Order _Order = Order::AsAsked;
  std::vector<KORAdpVersioningInfo> _Besides;
};
