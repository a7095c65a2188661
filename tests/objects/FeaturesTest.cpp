// Features in the applicative container of a time analysis.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "VEXSTTApplicativeContainerFeatServices.h"
#include "VEXSTTApplicativeContainerServices.h"
#include "platform/base/KORError.h"
#include "platform/model/KORFeatureContainer.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/TraceLines.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using exchangetest::TraceLines;
using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultOf;
using objectstest::FaultTest;
using objectstest::NewAnalysis;
using objectstest::ObjectsTest;
using objectstest::StatusName;
using support::ListOf;
using support::Texts;
using testing::ElementsAre;
using testing::IsEmpty;

using Features = VEXSTTApplicativeContainerFeatServices;
using FeatureCall = long (*)(const KORUnicodeString&, const KORIContainer_var&, KORISpecObject_var&);

KORISpecObject_var NewFeature(const char* name) {
  return KORHandle<KORFeature>::Adopt(new KORFeature(name));
}

// The result, and what became of the out argument, as "S_OK untouched"; a feature by its name.
std::string Call(FeatureCall call, const char* name, const KORIContainer_var& container) {
  const KORISpecObject_var before = NewFeature("before");
  KORISpecObject_var feature = before;
  const long status = call(name, container, feature);
  if (feature.IsNull()) return StatusName(status) + " null";
  if (feature == before) return StatusName(status) + " untouched";
  return StatusName(status) + " " + std::string(feature->GetFeatureName().Bytes());
}

std::string Create(const char* name, const KORIContainer_var& container) {
  return Call(&Features::Create, name, container);
}

std::string Retrieve(const char* name, const KORIContainer_var& container) {
  return Call(&Features::Retrieve, name, container);
}

KORISpecObject_var Found(const char* name, const KORIContainer_var& container) {
  KORISpecObject_var feature;
  EXPECT_EQ(Features::Retrieve(name, container, feature), S_OK);
  return feature;
}

KORIContainer_var NewContainer() {
  KORIContainer_var container;
  EXPECT_EQ(VEXSTTApplicativeContainerServices::Create(NewAnalysis("Fasten"), container), S_OK);
  return container;
}

class FeaturesTest : public ObjectsTest {
 protected:
  KORIContainer_var _Container = NewContainer();
  TraceLines _Trace;
};

// ---- Making ----

TEST_F(FeaturesTest, MadeOneBearsTheNameAndIsFound) {
  KORISpecObject_var made;
  EXPECT_EQ(Features::Create("Gr\xC3\xBC\xC3\x9F\x65", _Container, made), S_OK);
  EXPECT_EQ(made->GetFeatureName(), "Gr\xC3\xBC\xC3\x9F\x65");
  EXPECT_TRUE(Found("Gr\xC3\xBC\xC3\x9F\x65", _Container) == made);
  EXPECT_THAT(_Trace.Take(), IsEmpty());
}

TEST_F(FeaturesTest, EmptyNameIsForThePlatformToRefuse) {
  EXPECT_EQ(Create("", _Container), "E_FAIL untouched");
  EXPECT_THAT(_Trace.Take(), ElementsAre("Failed to create feature <>."));
}

TEST_F(FeaturesTest, FailureIsTraced) {
  _Session.InjectFault("Instanciate", E_FAIL);
  EXPECT_EQ(Create("A<B>", _Container), "E_FAIL untouched");
  EXPECT_THAT(_Trace.Take(), ElementsAre("Failed to create feature <A<B>>."));
}

TEST_F(FeaturesTest, NullContainerIsRefusedWithoutATrace) {
  EXPECT_EQ(Create("Motions", NULL_var), "E_INVALIDARG untouched");
  EXPECT_EQ(Create("", NULL_var), "E_INVALIDARG untouched");
  EXPECT_EQ(Retrieve("Motions", NULL_var), "E_INVALIDARG untouched");
  EXPECT_THAT(_Trace.Take(), IsEmpty());
}

// ---- Finding ----

TEST_F(FeaturesTest, EmptyContainerHasNone) {
  EXPECT_EQ(Retrieve("Motions", _Container), "S_FALSE untouched");
  EXPECT_EQ(Retrieve("", _Container), "S_FALSE untouched");
}

TEST_F(FeaturesTest, NameIsComparedExactly) {
  EXPECT_EQ(Create("Motions", _Container), "S_OK Motions");
  for (const char* name : {"motions", "MOTIONS", "Motion", "Motions ", " Motions", ""}) {
    EXPECT_EQ(Retrieve(name, _Container), "S_FALSE untouched") << name;
  }
  EXPECT_EQ(Retrieve("Motions", _Container), "S_OK Motions");
}

TEST_F(FeaturesTest, OfSeveralTheFirstIsFound) {
  KORISpecObject_var other, first, second;
  EXPECT_EQ(Features::Create("Other", _Container, other), S_OK);
  EXPECT_EQ(Features::Create("Motions", _Container, first), S_OK);
  EXPECT_EQ(Features::Create("Motions", _Container, second), S_OK);
  EXPECT_FALSE(first == second);
  EXPECT_TRUE(Found("Motions", _Container) == first);
}

// ---- Finding in a container of the test ----

// Lists what it is told, each with a reference.
class ListedContainer : public KORImplements<KORIContainer> {
 public:
  std::vector<KORBaseUnknown_var> Members;  // null handles included
  std::string Asked;
  std::exception_ptr Error;  // raised instead, if it is not null

  std::unique_ptr<_SEQUENCE_KORBaseUnknown_ptr> ListMembers(const char* class_name) override {
    Asked = class_name;
    if (Error != nullptr) std::rethrow_exception(Error);
    auto listed = std::make_unique<_SEQUENCE_KORBaseUnknown_ptr>();
    for (const KORBaseUnknown_var& member : Members) {
      if (!member.IsNull()) member->AddRef();
      listed->Append(member.Get());
    }
    return listed;
  }
};

// Raises an error when it is asked for its name.
class NamelessFeature : public KORImplements<KORISpecObject> {
 public:
  std::exception_ptr Error;  // not null

  KORUnicodeString GetFeatureName() override { std::rethrow_exception(Error); }
};

std::exception_ptr PlatformError() {
  return std::make_exception_ptr(KORError(E_NOINTERFACE, "raised"));
}

std::exception_ptr OtherError() {
  return std::make_exception_ptr(std::runtime_error("raised"));
}

KORBaseUnknown_var Raising(const std::exception_ptr& error) {
  const auto feature = KORHandle<NamelessFeature>::Adopt(new NamelessFeature);
  feature->Error = error;
  return feature;
}

class ListedFeaturesTest : public ObjectsTest {
 protected:
  KORHandle<ListedContainer> _Container = KORHandle<ListedContainer>::Adopt(new ListedContainer);
};

TEST_F(ListedFeaturesTest, MembersOfTheClassOfFeaturesAreAskedFor) {
  EXPECT_EQ(Retrieve("Motions", _Container), "S_FALSE untouched");
  EXPECT_EQ(_Container->Asked, KORISpecObject::ClassName());
}

TEST_F(ListedFeaturesTest, WhatIsNoFeatureIsPassedOver) {
  _Container->Members = {NULL_var, calculationtest::MakeBareObject(), NewFeature("Other"), NULL_var,
                         NewFeature("Motions")};
  EXPECT_EQ(Retrieve("Motions", _Container), "S_OK Motions");
  EXPECT_EQ(Retrieve("None", _Container), "S_FALSE untouched");
}

TEST_F(ListedFeaturesTest, SearchEndsAtTheMatch) {
  _Container->Members = {NewFeature("Motions"), Raising(OtherError())};
  EXPECT_EQ(Retrieve("Motions", _Container), "S_OK Motions");
}

TEST_F(ListedFeaturesTest, PlatformErrorFailsTheSearch) {
  _Container->Members = {NewFeature("Other"), Raising(PlatformError()), NewFeature("Motions")};
  EXPECT_EQ(Retrieve("Motions", _Container), "E_FAIL untouched");
  EXPECT_EQ(Retrieve("Other", _Container), "S_OK Other");
  _Container->Error = PlatformError();
  EXPECT_EQ(Retrieve("Other", _Container), "E_FAIL untouched");
}

TEST_F(ListedFeaturesTest, OtherErrorIsRaisedAgain) {
  _Container->Members = {NewFeature("Other"), Raising(OtherError()), NewFeature("Motions")};
  EXPECT_THROW((void)Retrieve("Motions", _Container), std::runtime_error);
  _Container->Error = OtherError();
  EXPECT_THROW((void)Retrieve("Other", _Container), std::runtime_error);
}

// What came with a reference has gone back to one, that of the container.
TEST_F(ListedFeaturesTest, MembersAreReleasedHoweverTheSearchEnds) {
  for (const std::exception_ptr& error : {PlatformError(), OtherError()}) {
    _Container->Members = {NewFeature("Motions"), calculationtest::MakeBareObject(), Raising(error),
                           NewFeature("Behind")};
    EXPECT_EQ(Retrieve("Motions", _Container), "S_OK Motions");
    EXPECT_ANY_THROW({
      if (Retrieve("Behind", _Container) == "E_FAIL untouched") throw KORError(E_FAIL, "told by the status");
    });
    for (const KORBaseUnknown_var& member : _Container->Members) {
      EXPECT_EQ(member->AddRef(), 2u);
      EXPECT_EQ(member->Release(), 1u);
    }
  }
}

// ---- Attributes ----

class FeatureAttributesTest : public ObjectsTest {
 protected:
  KORHandle<KORFeature> _Feature = KORHandle<KORFeature>::Adopt(new KORFeature("Motions"));
  KORListValKORUnicodeString _Names = ListOf({"before"});
};

TEST_F(FeatureAttributesTest, NamesReplaceWhatWasInTheList) {
  _Feature->AddAttributeName("Distance");
  _Feature->AddAttributeName("Case");
  EXPECT_EQ(Features::ListAttrNames(_Feature, _Names), S_OK);
  EXPECT_THAT(Texts(_Names), ElementsAre("Distance", "Case"));
  EXPECT_EQ(Features::ListAttrNames(_Feature, _Names), S_OK);
  EXPECT_THAT(Texts(_Names), ElementsAre("Distance", "Case"));
}

TEST_F(FeatureAttributesTest, FeatureWithoutAttributesEmptiesTheList) {
  EXPECT_EQ(Features::ListAttrNames(_Feature, _Names), S_OK);
  EXPECT_THAT(Texts(_Names), IsEmpty());
}

TEST_F(FeatureAttributesTest, ObjectWithoutAttributesLeavesTheList) {
  for (const KORBaseUnknown_var& object :
       {KORBaseUnknown_var(), calculationtest::MakeBareObject(), KORBaseUnknown_var(NewAnalysis("Fasten"))}) {
    EXPECT_EQ(Features::ListAttrNames(object, _Names), E_NOINTERFACE);
    EXPECT_THAT(Texts(_Names), ElementsAre("before"));
  }
}

// ---- Faults of the platform ----

class FeatureMakingFaultTest : public FaultTest {};

// A feature that comes with a failure is in the container, and stays in the hand of the caller.
TEST_P(FeatureMakingFaultTest, OnMaking) {
  const TraceLines trace;
  const KORIContainer_var container = NewContainer();
  ExpectOutcome([&container] { return Create("Motions", container); }, "S_OK Motions");
}

INSTANTIATE_TEST_SUITE_P(Calls, FeatureMakingFaultTest,
                         testing::ValuesIn(AllFaults({{"Instanciate", "fault untouched", "fault Motions",
                                                       "S_OK untouched"}})),
                         FaultCaseName());

class FeatureSearchFaultTest : public FaultTest {};

TEST_P(FeatureSearchFaultTest, OnFinding) {
  const KORIContainer_var container = NewContainer();
  EXPECT_EQ(Create("Motions", container), "S_OK Motions");
  const auto find = [&container] {
    KORISpecObject_var feature;
    const long status = Features::Retrieve("Motions", container, feature);
    return StatusName(status) + (feature.IsNull() ? " null" : " found");
  };
  ExpectOutcome(find, "S_OK found");
}

// Neither gives a status. Without members there is nothing to be found, and what has an empty name is not it.
INSTANTIATE_TEST_SUITE_P(Calls, FeatureSearchFaultTest,
                         testing::ValuesIn(AllFaults({{"ListMembers", "S_FALSE null", "S_OK found", "S_FALSE null"},
                                                      {"GetFeatureName", "S_FALSE null", "S_OK found",
                                                       "S_FALSE null"}})),
                         FaultCaseName());

class AttributeListFaultTest : public FaultTest {};

TEST_P(AttributeListFaultTest, OnListing) {
  const auto feature = KORHandle<KORFeature>::Adopt(new KORFeature("Motions"));
  feature->AddAttributeName("Distance");
  const auto list = [&feature] {
    KORListValKORUnicodeString names = ListOf({"before"});
    const long status = Features::ListAttrNames(feature, names);
    return StatusName(status) + " " + std::string(names[1].Bytes());
  };
  ExpectOutcome(list, "S_OK Distance");
}

INSTANTIATE_TEST_SUITE_P(Calls, AttributeListFaultTest,
                         testing::ValuesIn(AllFaults({{"ListAttributeNames", "E_FAIL before", "S_OK Distance",
                                                       "E_FAIL before"}})),
                         FaultCaseName());

TEST_F(FeaturesTest, ErrorRaisedByThePlatformFailsTheSearch) {
  EXPECT_EQ(Create("Motions", _Container), "S_OK Motions");
  KORFault fault = FaultOf(KORFault::Kind::Raised);
  for (const char* call : {"ListMembers", "GetFeatureName"}) {
    fault.Error = PlatformError();
    _Session.InjectFault(call, fault);
    KORISpecObject_var feature;
    EXPECT_EQ(Features::Retrieve("Motions", _Container, feature), E_FAIL) << call;
    EXPECT_TRUE(feature.IsNull());
    fault.Error = OtherError();
    _Session.InjectFault(call, fault);
    EXPECT_THROW((void)Features::Retrieve("Motions", _Container, feature), std::runtime_error) << call;
    _Session.ClearFaults();
  }
}

}  // namespace
