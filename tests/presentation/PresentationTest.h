// What the tests of nodes of analyses share: a session with a user, an analysis at its place under an operation, nodes
// in the tree, what nodes are told as texts, and objects that offer less or more than those of the model.
//
//   const Place place;
//   const auto node = NewNode(place.Instance, {NewNode(place.Occurrence)});
//   EXPECT_EQ(CallsOfUpdate(node, place.Instance), Join({OpenIcon, ImageRefresh, TextRefresh}));
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/model/KORIAlias.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORINavigateObject.h"
#include "platform/services/KORNavigInstance.h"
#include "platform/services/KORNavigTree.h"
#include "platform/services/KORNodeExtension.h"
#include "platform/system/KORPerform.h"
#include "tests/objects/ObjectsTest.h"

namespace presentationtest {

using objectstest::Attach;
using objectstest::FaultOf;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewOccurrence;
using objectstest::NewOperation;
using objectstest::Occurrence_var;
using objectstest::Operation_var;
using objectstest::ReferencesOf;
using objectstest::StatusName;
using support::TimeAnalysis_var;

using Node_var = KORNavigTree::Node_var;
using Parents = std::vector<KORIGraphNode_var>;
using NavigInstance_var = KORHandle<KORNavigInstance>;

// Components of analyses and of their nodes.
inline constexpr const char* ReferenceComponent = "PCCMemVEXTimeAnalysisRepReference";
inline constexpr const char* InstanceComponent = "PCCMemVEXTimeAnalysisRepInstance";
inline constexpr const char* ReferenceNodeComponent = "PCCMemVEXTimeAnalysisRepReference_node";
inline constexpr const char* InstanceNodeComponent = "PCCMemVEXTimeAnalysisRepInstance_node";

/// The variable that lets nodes show during capture and replay.
inline constexpr const char* DisplayVariable = "VEXSTM_TVSONLY_DISPLAY_TA_NODE";

/// Logs "anna" in, and hides the variable of the process.
inline void PrepareSession(KORSession& session) {
  session.SetCurrentUserId("anna");
  session.UnsetEnvironment(DisplayVariable);
}

/// A fresh session in which "anna" is logged in.
class PresentationTest : public objectstest::ObjectsTest {
 protected:
  PresentationTest() { PrepareSession(_Session); }
};

/// The same with a row of a table.
template <class Row>
class PresentationRowTest : public PresentationTest, public testing::WithParamInterface<Row> {};

// ---- Objects ----

/// An analysis under an operation, by its instance.
struct Place {
  Operation_var Operation = NewOperation("Cover");
  Occurrence_var Occurrence = NewOccurrence(Operation);
  TimeAnalysis_var Analysis = NewAnalysis("Fasten");
  PLMIRepInstance_var Instance = Attach(Operation, Analysis);
};

/// An object of the model with what all of them share.
inline KORPLMObject& RecordOf(const KORBaseUnknown_var& object) {
  return dynamic_cast<KORPLMObject&>(*object);
}

/// An occurrence of an operation that the user may change or not.
inline Occurrence_var NewOccurrence(bool editable) {
  const Operation_var operation = NewOperation("Cover");
  operation->SetEditable(editable);
  return NewOccurrence(operation);
}

/// An object of a component that offers nothing of its own.
class Stranger final : public KORBaseUnknown {
 public:
  explicit Stranger(const char* component) : _Component(component) {}
  const char* GetComponentName() const override { return _Component; }

 private:
  const char* _Component;
};

inline KORBaseUnknown_var NewStranger(const char* component) {
  return KORBaseUnknown_var::Adopt(new Stranger(component));
}

/// A reference without display name, of a component that need not be extended.
class NamelessReference final : public KORImplements<PLMIRepReference> {
 public:
  explicit NamelessReference(const char* component) : _Component(component) {}
  const char* GetComponentName() const override { return _Component; }

 private:
  const char* _Component;
};

inline PLMIRepReference_var NewNamelessReference(const char* component) {
  return PLMIRepReference_var::Adopt(new NamelessReference(component));
}

/// An instance with the display name "Instance", of a reference that may be null.
class NamedInstance : public KORImplements<PLMIRepInstance, KORIAlias> {
 public:
  explicit NamedInstance(PLMIRepReference_var reference) : _Reference(std::move(reference)) {}
  const char* GetComponentName() const override { return InstanceComponent; }
  long GetRepReference(PLMIRepReference*& reference) override {
    return KORHandOut("GetRepReference", _Reference, reference);
  }
  KORUnicodeString GetAlias() override { return "Instance"; }

 private:
  PLMIRepReference_var _Reference;
};

inline KORBaseUnknown_var NewNamedInstance(const PLMIRepReference_var& reference) {
  return KORBaseUnknown_var::Adopt(new NamedInstance(reference));
}

/// An instance of a reference that is a reference itself.
class ReferenceAndInstance final : public KORDerives<NamedInstance, PLMIRepReference> {
 public:
  using KORDerives::KORDerives;
};

inline KORBaseUnknown_var NewReferenceAndInstance(const PLMIRepReference_var& reference) {
  return KORBaseUnknown_var::Adopt(new ReferenceAndInstance(reference));
}

// ---- Nodes ----

inline NavigInstance_var NewNavigInstance(const KORBaseUnknown_var& object) {
  return NavigInstance_var::Adopt(new KORNavigInstance(object));
}

/// The node of an object below others.
inline Node_var NewNode(const KORBaseUnknown_var& object, const Parents& parents = {}) {
  KORNavigTree tree;
  const Node_var node = tree.AddNode(object);
  for (const KORIGraphNode_var& parent : parents) node->AddParent(parent);
  return node;
}

/// Has a node drawn as that of an object, which may be null.
inline void Update(const Node_var& node, const KORBaseUnknown_var& object) {
  KORINavigModify_var(node)->UpdateNodeDisplay(NewNavigInstance(object).Get());
}

// What nodes are told.
inline constexpr const char* OpenIcon = "SetIcon(\"I_VEXSTTStopWatch\")";
inline constexpr const char* LockedIcon = "SetIcon(\"I_VEXSTTStopWatchLocked\")";
inline constexpr const char* MyReferenceMask = "AddIconMask(\"I_MaskLockByMeRef\", 15, 8, 1)";
inline constexpr const char* OthersReferenceMask = "AddIconMask(\"I_MaskNotLockByMeRef\", 15, 8, 1)";
inline constexpr const char* MyInstanceMask = "AddIconMask(\"I_MaskLockByMeInst\", 9, 12, 1)";
inline constexpr const char* OthersInstanceMask = "AddIconMask(\"I_MaskNotLockByMeInst\", 9, 12, 1)";
inline constexpr const char* ImageRefresh = "RefreshNodeImage(0)";
inline constexpr const char* TextRefresh = "RefreshNodeText(0)";

/// Calls in their order, with "; " between them; empty texts stand for none.
template <class Texts>
std::string JoinAll(const Texts& calls) {
  std::string joined;
  for (const std::string_view call : calls) {
    if (!call.empty()) joined.append(joined.empty() ? "" : "; ").append(call);
  }
  return joined;
}
inline std::string Join(std::initializer_list<const char*> calls) {
  return JoinAll(calls);
}

/// What a node is told while `act` runs.
template <class Action>
std::string CallsWhile(const Node_var& node, const Action& act) {
  node->ForgetCalls();
  act();
  return JoinAll(node->GetCalls());
}

/// What a node is told to be drawn as that of an object.
inline std::string CallsOfUpdate(const Node_var& node, const KORBaseUnknown_var& object) {
  return CallsWhile(node, [&] { Update(node, object); });
}

/// The icon that a node shows.
inline std::string IconOf(const Node_var& node) {
  return std::string(node->GetIcon().Bytes());
}

// ---- Names ----

/// The names of the object's node, as "[Fasten]"; "null" if there are none.
inline std::string NodeNamesOf(const KORBaseUnknown_var& object) {
  const std::unique_ptr<const KORListValKORUnicodeString> names(KORINavigateObject_var(object)->GetNodeNames());
  if (names == nullptr) return "null";
  std::string texts;
  for (const KORUnicodeString& name : *names) texts += "[" + std::string(name.Bytes()) + "]";
  return texts;
}

// ---- Calls of the platform ----

/// True if `act` calls an operation of the platform. One that gives a status fails then, though it does its work.
template <class Action>
bool Calls(const char* operation, const Action& act) {
  KORSession& session = KORSession::Current();
  session.InjectFault(operation, FaultOf(KORFault::Kind::StatusAlone, KORFault::Life::Once));
  act();
  return !session.TakeFault(operation).has_value();
}

}  // namespace presentationtest
