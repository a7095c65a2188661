// The container for the applicative data of a representation.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "VEXSTTApplicativeContainerServices.h"
#include "platform/model/PLMIRepReferenceDataAccess.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultTest;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewOperation;
using objectstest::ObjectsRowTest;
using objectstest::ObjectsTest;
using objectstest::StatusName;
using support::RowName;

using Services = VEXSTTApplicativeContainerServices;
using ContainerCall = long (*)(const KORBaseUnknown_var&, KORIContainer_var&);

// Stands in an out argument that is to stay as it was.
class OldContainer : public KORImplements<KORIContainer> {
 public:
  std::unique_ptr<_SEQUENCE_KORBaseUnknown_ptr> ListMembers(const char* /*class_name*/) override { return nullptr; }
};

// The result, and what became of the out argument, as "S_OK container".
std::string Call(ContainerCall call, const KORBaseUnknown_var& representation) {
  const auto before = KORIContainer_var::Adopt(new OldContainer);
  KORIContainer_var container = before;
  const long status = call(representation, container);
  const char* const out = container.IsNull() ? "null" : container == before ? "untouched" : "container";
  return StatusName(status) + " " + out;
}

KORIContainer_var Found(const KORBaseUnknown_var& representation) {
  KORIContainer_var container;
  EXPECT_EQ(Services::Retrieve(representation, container), S_OK);
  return container;
}

TEST_F(ObjectsTest, ContainerIsMadeAndFound) {
  const KORBaseUnknown_var analysis = NewAnalysis("Fasten");
  EXPECT_EQ(Call(&Services::Retrieve, analysis), "E_FAIL untouched");
  KORIContainer_var made;
  EXPECT_EQ(Services::Create(analysis, made), S_OK);
  EXPECT_TRUE(Found(analysis) == made);
  EXPECT_TRUE(Found(analysis) == made);
}

TEST_F(ObjectsTest, ContainerIsOneForEachRepresentation) {
  const KORBaseUnknown_var analysis = NewAnalysis("Fasten"), other = NewAnalysis("Fasten");
  const KORBaseUnknown_var drawing = NewDrawing("Sketch");
  for (const KORBaseUnknown_var& representation : {analysis, drawing}) {
    EXPECT_EQ(Call(&Services::Create, representation), "S_OK container");
  }
  EXPECT_FALSE(Found(analysis) == Found(drawing));
  EXPECT_EQ(Call(&Services::Retrieve, other), "E_FAIL untouched");
}

TEST_F(ObjectsTest, SecondContainerIsForThePlatformToRefuse) {
  const KORBaseUnknown_var analysis = NewAnalysis("Fasten");
  KORIContainer_var made;
  EXPECT_EQ(Services::Create(analysis, made), S_OK);
  EXPECT_EQ(Call(&Services::Create, analysis), "E_FAIL untouched");
  EXPECT_TRUE(Found(analysis) == made);
}

TEST_F(ObjectsTest, ContainerIsHeldByItsHandle) {
  KORIContainer_var container;
  {
    const KORBaseUnknown_var analysis = support::MakeAnalysis("Fasten");
    EXPECT_EQ(Services::Create(analysis, container), S_OK);
  }
  EXPECT_NE(container->ListMembers(KORISpecObject::ClassName()), nullptr);
}

// ---- Objects that have none ----

struct ObjectRow {
  const char* name;
  std::function<KORBaseUnknown_var()> make;
  const char* outcome;
};

void PrintTo(const ObjectRow& row, std::ostream* out) {
  *out << row.name;
}

class ContainerObjectTest : public ObjectsRowTest<ObjectRow> {};

TEST_P(ContainerObjectTest, IsRefused) {
  const KORBaseUnknown_var object = GetParam().make();
  EXPECT_EQ(Call(&Services::Create, object), GetParam().outcome);
  EXPECT_EQ(Call(&Services::Retrieve, object), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Objects, ContainerObjectTest,
    testing::Values(ObjectRow{"Null", [] { return KORBaseUnknown_var(); }, "E_INVALIDARG untouched"},
                    ObjectRow{"WithoutInterfaces", calculationtest::MakeBareObject, "E_FAIL untouched"},
                    ObjectRow{"Operation", [] { return KORBaseUnknown_var(NewOperation("Cover")); },
                              "E_FAIL untouched"}),
    RowName());

// ---- What the platform is asked ----

// Writes down what it is asked for, and answers as told.
class AskedData : public KORImplements<PLMIRepReferenceApplicativeDataAccess> {
 public:
  std::string Asked;
  long Status = S_OK;
  KORIContainer_var Answer;  // handed out with a reference; null for none

  long CreateApplicativeContainer(void** out, const char* model, const KORUuid& interface_id, const char* type,
                                  const KORUnicodeString& name) override {
    Asked = std::string(model) + " " + type + " " + std::string(name.Bytes());
    return Give(interface_id, out);
  }
  long RetrieveApplicativeContainer(const KORUnicodeString& name, const KORUuid& interface_id, void** out) override {
    Asked = std::string(name.Bytes());
    return Give(interface_id, out);
  }

 private:
  long Give(const KORUuid& interface_id, void** out) const {
    EXPECT_EQ(interface_id, KORIContainer::ClassId());
    if (!Answer.IsNull()) Answer->AddRef();
    *out = Answer.Get();
    return Status;
  }
};

class AskedDataTest : public ObjectsTest {
 protected:
  KORHandle<AskedData> _Data = KORHandle<AskedData>::Adopt(new AskedData);
};

TEST_F(AskedDataTest, IsAskedByTheFixedNames) {
  (void)Call(&Services::Create, _Data);
  EXPECT_EQ(_Data->Asked, "VEXTimeAnalysisModel KORFeatCont VEXTimeAnalysisCont");
  (void)Call(&Services::Retrieve, _Data);
  EXPECT_EQ(_Data->Asked, "VEXTimeAnalysisCont");
}

TEST_F(AskedDataTest, SuccessWithoutContainerLeavesTheHandleOnMakingAndEmptiesItOnFinding) {
  for (const long status : {S_OK, S_FALSE}) {
    _Data->Status = status;
    EXPECT_EQ(Call(&Services::Create, _Data), StatusName(status) + " untouched");
    EXPECT_EQ(Call(&Services::Retrieve, _Data), StatusName(status) + " null");
  }
}

TEST_F(AskedDataTest, ContainerThatComesWithASuccessOfAnyKindIsTaken) {
  _Data->Answer = KORIContainer_var::Adopt(new OldContainer);
  for (const long status : {S_OK, S_FALSE}) {
    _Data->Status = status;
    EXPECT_EQ(Call(&Services::Create, _Data), StatusName(status) + " container");
    EXPECT_EQ(Call(&Services::Retrieve, _Data), StatusName(status) + " container");
  }
}

// ---- Faults of the platform ----

class ContainerFaultTest : public FaultTest {};

TEST_P(ContainerFaultTest, OnMaking) {
  ExpectOutcome([] { return Call(&Services::Create, NewAnalysis("Fasten")); }, "S_OK container");
}

INSTANTIATE_TEST_SUITE_P(Calls, ContainerFaultTest,
                         testing::ValuesIn(AllFaults({{"CreateApplicativeContainer", "fault untouched",
                                                       "fault untouched", "S_OK untouched"}})),
                         FaultCaseName());

class ContainerSearchFaultTest : public FaultTest {};

TEST_P(ContainerSearchFaultTest, OnFinding) {
  const KORBaseUnknown_var analysis = NewAnalysis("Fasten");
  EXPECT_EQ(Call(&Services::Create, analysis), "S_OK container");
  ExpectOutcome([&analysis] { return Call(&Services::Retrieve, analysis); }, "S_OK container");
}

INSTANTIATE_TEST_SUITE_P(Calls, ContainerSearchFaultTest,
                         testing::ValuesIn(AllFaults({{"RetrieveApplicativeContainer", "fault untouched",
                                                       "fault untouched", "S_OK null"}})),
                         FaultCaseName());

}  // namespace
