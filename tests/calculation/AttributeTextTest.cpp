// Attributes of any object as text: of the object itself, and of the reference behind an occurrence.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/model/KORIInstance.h"
#include "platform/model/KORIPLMNavOccurrence.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::MakeBareObject;

// A value that gives its text with a status of its own.
class ToyValue : public KORImplements<KORIValue> {
 public:
  ToyValue(std::string text, long status) : _Text(std::move(text)), _Status(status) {}
  long GetText(KORUnicodeString& text) override {
    text = KORUnicodeString(_Text);
    return _Status;
  }

 private:
  std::string _Text;
  long _Status;
};

// What an object answers when it is asked for the attribute "V_Name".
struct Attribute {
  std::string text;
  long status = S_OK;
};

KORIValue* ValueOf(const std::optional<Attribute>& attribute, const KORUnicodeString& name) {
  return attribute && name == "V_Name" ? new ToyValue(attribute->text, attribute->status) : nullptr;
}

// Hands out an interface with a reference, or null.
template <class Interface, class Object>
Interface* HandOut(const KORHandle<Object>& object) {
  if (object.IsNull()) return nullptr;
  object->AddRef();
  return object.Get();
}

class PlainReference : public KORImplements<KORIPLMNavReference> {};

class ToyReference : public KORImplements<KORIPLMNavReference, KORIInstance> {
 public:
  explicit ToyReference(std::optional<Attribute> attribute) : _Attribute(std::move(attribute)) {}
  KORIValue* GetAttribute(const KORUnicodeString& name) override { return ValueOf(_Attribute, name); }

 private:
  std::optional<Attribute> _Attribute;
};

class ToyInstance : public KORImplements<KORIPLMNavInstance> {
 public:
  ToyInstance(KORIPLMNavReference_var reference, long status) : _Reference(std::move(reference)), _Status(status) {}
  long GetInstanceReference(KORIPLMNavReference*& reference) override {
    reference = HandOut<KORIPLMNavReference>(_Reference);
    return _Status;
  }

 private:
  KORIPLMNavReference_var _Reference;
  long _Status;
};

class ToyObject : public KORImplements<KORIInstance> {
 public:
  explicit ToyObject(std::optional<Attribute> attribute) : _Attribute(std::move(attribute)) {}
  KORIValue* GetAttribute(const KORUnicodeString& name) override { return ValueOf(_Attribute, name); }

 private:
  std::optional<Attribute> _Attribute;
};

class ToyOccurrence : public KORDerives<ToyObject, KORIPLMNavOccurrence> {
 public:
  ToyOccurrence(std::optional<Attribute> attribute, KORIPLMNavInstance_var instance, long status)
      : KORDerives(std::move(attribute)), _Instance(std::move(instance)), _Status(status) {}
  long GetRelatedInstance(KORIPLMNavInstance*& instance) override {
    instance = HandOut<KORIPLMNavInstance>(_Instance);
    return _Status;
  }

 private:
  KORIPLMNavInstance_var _Instance;
  long _Status;
};

// An occurrence without attributes of its own.
class BareOccurrence : public KORImplements<KORIPLMNavOccurrence> {
 public:
  explicit BareOccurrence(KORIPLMNavInstance_var instance) : _Instance(std::move(instance)) {}
  long GetRelatedInstance(KORIPLMNavInstance*& instance) override {
    instance = HandOut<KORIPLMNavInstance>(_Instance);
    return S_OK;
  }

 private:
  KORIPLMNavInstance_var _Instance;
};

template <class Object, class... Arguments>
KORHandle<Object> Make(Arguments&&... arguments) {
  return KORHandle<Object>::Adopt(new Object(std::forward<Arguments>(arguments)...));
}

struct Answer {
  long status;
  std::string text;
};

// Asks for "V_Name" and requires that nothing but the text changes, and that nothing is kept.
Answer Ask(const KORBaseUnknown_var& object) {
  VEXSTMTimeAnalysisDlgServices services;
  const long alive = KORBaseUnknown::CountLiveObjects();
  KORUnicodeString name = "V_Name";
  KORUnicodeString value = "before";
  double real = 1.5;
  int integer = 7;
  const long status = services.GetValue(object, name, value, real, integer);
  EXPECT_EQ(name, "V_Name");
  EXPECT_EQ(real, 1.5);
  EXPECT_EQ(integer, 7);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), alive) << "the values are released";
  return {status, support::Text(value)};
}

// The number of references on an object.
unsigned long References(const KORBaseUnknown& object) {
  object.AddRef();
  return object.Release();
}

TEST(AttributeTextTest, ANullObjectFails) {
  const Answer answer = Ask(NULL_var);
  EXPECT_EQ(answer.status, E_FAIL);
  EXPECT_EQ(answer.text, "before");
}

TEST(AttributeTextTest, AnObjectWithoutAttributesFails) {
  const Answer answer = Ask(MakeBareObject());
  EXPECT_EQ(answer.status, E_FAIL);
  EXPECT_EQ(answer.text, "before");
}

TEST(AttributeTextTest, AnOccurrenceWithoutAttributesOfItsOwnFailsBeforeItsReferenceIsAsked) {
  const auto reference = Make<ToyReference>(Attribute{"Assemble"});
  const Answer answer = Ask(Make<BareOccurrence>(Make<ToyInstance>(reference, S_OK)));
  EXPECT_EQ(answer.status, E_FAIL);
  EXPECT_EQ(answer.text, "before");
}

class TextStatusTest : public testing::TestWithParam<long> {};

TEST_P(TextStatusTest, TheStatusIsThatOfTheText) {
  const Answer answer = Ask(Make<ToyObject>(Attribute{"Reach", GetParam()}));
  EXPECT_EQ(answer.status, GetParam());
  EXPECT_EQ(answer.text, "Reach");
}

TEST_P(TextStatusTest, OfTheReferenceToo) {
  const auto reference = Make<ToyReference>(Attribute{"Assemble", GetParam()});
  const auto instance = Make<ToyInstance>(reference, S_FALSE);
  const Answer answer = Ask(Make<ToyOccurrence>(std::nullopt, instance, S_FALSE));
  EXPECT_EQ(answer.status, GetParam());
  EXPECT_EQ(answer.text, "Assemble");
}

INSTANTIATE_TEST_SUITE_P(Statuses, TextStatusTest, testing::Values(S_OK, S_FALSE, E_FAIL, E_INVALIDARG));

TEST(AttributeTextTest, AnObjectThatLacksTheAttributeAndIsNoOccurrenceFails) {
  const Answer answer = Ask(Make<ToyObject>(std::nullopt));
  EXPECT_EQ(answer.status, E_FAIL);
  EXPECT_EQ(answer.text, "before");
}

TEST(AttributeTextTest, TheOwnAttributeGoesBeforeThatOfTheReference) {
  const auto reference = Make<ToyReference>(Attribute{"Assemble"});
  const auto instance = Make<ToyInstance>(reference, S_OK);
  EXPECT_EQ(Ask(Make<ToyOccurrence>(Attribute{"Reach"}, instance, S_OK)).text, "Reach");
  EXPECT_EQ(Ask(Make<ToyOccurrence>(Attribute{""}, instance, S_OK)).text, "") << "an empty one as well";
}

// ---- The way to the reference ----

enum class End { NoInstance, NoReference, PlainReference, Without, With };

struct WayRow {
  const char* name;
  long instance_status;
  long reference_status;
  End end;
  long status;
  const char* text;
};
class WayTest : public testing::TestWithParam<WayRow> {};

KORIPLMNavReference_var ReferenceFor(End end) {
  switch (end) {
    case End::PlainReference:
      return Make<PlainReference>();
    case End::Without:
      return Make<ToyReference>(std::nullopt);
    case End::With:
      return Make<ToyReference>(Attribute{"Assemble"});
    default:
      return NULL_var;
  }
}

TEST_P(WayTest, EndsWithTheStatusOfItsLastStep) {
  const WayRow& row = GetParam();
  const KORIPLMNavReference_var reference = ReferenceFor(row.end);
  KORIPLMNavInstance_var instance;
  if (row.end != End::NoInstance) instance = Make<ToyInstance>(reference, row.reference_status);
  const auto occurrence = Make<ToyOccurrence>(std::nullopt, instance, row.instance_status);
  const Answer answer = Ask(occurrence);
  EXPECT_EQ(answer.status, row.status);
  EXPECT_EQ(answer.text, row.text);
  EXPECT_EQ(References(*occurrence), 1u);
  if (!instance.IsNull()) {
    EXPECT_EQ(References(*instance), 2u) << "here and in the occurrence";
  }
  if (!reference.IsNull()) {
    EXPECT_EQ(References(*reference), 2u) << "here and in the instance";
  }
}

INSTANTIATE_TEST_SUITE_P(
    Ways, WayTest,
    testing::Values(WayRow{"ToTheAttribute", S_OK, S_OK, End::With, S_OK, "Assemble"},
                    WayRow{"NoInstance", E_INVALIDARG, S_OK, End::NoInstance, E_FAIL, "before"},
                    WayRow{"NoInstanceInSpiteOfSuccess", S_OK, S_OK, End::NoInstance, E_FAIL, "before"},
                    WayRow{"NoReference", S_OK, E_INVALIDARG, End::NoReference, E_FAIL, "before"},
                    WayRow{"NoReferenceInSpiteOfSuccess", S_OK, S_OK, End::NoReference, E_FAIL, "before"},
                    WayRow{"AnInstanceInSpiteOfFailure", E_FAIL, S_OK, End::With, S_OK, "Assemble"},
                    WayRow{"AReferenceInSpiteOfFailure", S_OK, E_INVALIDARG, End::With, S_OK, "Assemble"},
                    WayRow{"TheReferenceLacksTheAttribute", S_OK, S_OK, End::Without, S_OK, "before"},
                    WayRow{"OnlyTheLastStepCounts", E_INVALIDARG, S_FALSE, End::Without, S_FALSE, "before"},
                    WayRow{"AFailedLastStepCountsToo", S_OK, E_INVALIDARG, End::Without, E_INVALIDARG, "before"},
                    WayRow{"AReferenceWithoutAttributes", S_OK, S_OK, End::PlainReference, E_FAIL, "before"}),
    support::RowName());

// ---- Objects of the model ----

TEST(AttributeTextTest, AttributesOfATimeAnalysis) {
  const auto analysis = support::MakeAnalysis("Pick");
  EXPECT_EQ(Ask(analysis).status, E_FAIL) << "not set";
  (void)analysis->SetValue("V_Name", KORUnicodeString("Pick a part"));
  EXPECT_EQ(Ask(analysis).status, S_OK);
  EXPECT_EQ(Ask(analysis).text, "Pick a part");
  EXPECT_EQ(References(*analysis), 1u);
}

// An operation with a name, and an occurrence of it in the product structure of a fresh session.
class OperationNameTest : public testing::Test {
 protected:
  OperationNameTest() { _Operation->GetAttributes().Set("V_Name", KORUnicodeString("Assemble")); }

  KORFreshSession _Session;
  const KORHandle<KOROperationReference> _Operation = KORModel::Current().CreateOperation("Op-1");
  const KORHandle<KOROperationOccurrence> _Occurrence = KORModel::Current().CreateOccurrence(_Operation);
};

TEST_F(OperationNameTest, IsReadThroughItsOccurrence) {
  EXPECT_EQ(Ask(_Operation).text, "Assemble");
  const Answer answer = Ask(_Occurrence);
  EXPECT_EQ(answer.status, S_OK);
  EXPECT_EQ(answer.text, "Assemble");
}

TEST_F(OperationNameTest, YieldsToThatOfTheOccurrence) {
  _Occurrence->GetAttributes().Set("V_Name", KORUnicodeString("Assemble here"));
  EXPECT_EQ(Ask(_Occurrence).text, "Assemble here");
}

TEST_F(OperationNameTest, CannotBeReadWhereAStepOfTheWayFails) {
  for (const char* step : {"GetRelatedInstance", "GetInstanceReference"}) {
    _Session.InjectFault(step, E_INVALIDARG);
    const Answer answer = Ask(_Occurrence);
    EXPECT_EQ(answer.status, E_FAIL) << step;
    EXPECT_EQ(answer.text, "before") << step;
    _Session.ClearFaults();
  }
}

TEST_F(OperationNameTest, CannotBeReadThroughAnOccurrenceThatLostItsInstance) {
  EXPECT_EQ(Ask(Make<KOROperationOccurrence>(KORIPLMNavInstance_var())).status, E_FAIL);
  const auto lost = Make<KOROperationInstance>(KORIPLMNavReference_var());
  EXPECT_EQ(Ask(Make<KOROperationOccurrence>(lost)).status, E_FAIL);
}

}  // namespace
