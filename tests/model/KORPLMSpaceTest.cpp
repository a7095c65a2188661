// Identificators resolve to their object as long as that lives.
#include "platform/model/KORPLMSpace.h"

#include <gtest/gtest.h>

#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/system/KORSession.h"
#include "tests/model/ModelTest.h"

namespace {

using modeltest::Analysis_var;
using modeltest::NewAnalysis;

KORIPLMSpace_var ResolutionSpace() {
  KORIPLMSpace* space = nullptr;
  EXPECT_EQ(KORPLMSpaceServices::GetResolutionSpace(space, 0, KORPLMSpaceServices::Kor3DSpace), S_OK);
  return KORIPLMSpace_var::Adopt(space);
}

KORIAdpPLMIdentificator_var IdentificatorOf(KORIPLMComponent& component) {
  KORIAdpPLMIdentificator* identificator = nullptr;
  EXPECT_EQ(component.GetPLMIdentificator(identificator), S_OK);
  return KORIAdpPLMIdentificator_var::Adopt(identificator);
}

// The status of the resolution; `object` becomes what it gives.
long Resolve(const KORIAdpPLMIdentificator_var& identificator, KORBaseUnknown_var& object) {
  int anything = 0;
  void* out = &anything;
  const long status = ResolutionSpace()->ResolveComponent(identificator.Get(), KORBaseUnknown::ClassId(), &out);
  EXPECT_EQ(Failed(status), out == nullptr);
  object = KORBaseUnknown_var::Adopt(static_cast<KORBaseUnknown*>(out));
  return status;
}

class KORPLMSpaceTest : public testing::Test {
 protected:
  const KORFreshSession _Session;
};

TEST_F(KORPLMSpaceTest, GivesTheObjectWithAReference) {
  Analysis_var analysis = NewAnalysis("TA");
  KORBaseUnknown_var object;
  EXPECT_EQ(Resolve(IdentificatorOf(*analysis), object), S_OK);
  EXPECT_TRUE(object == analysis);
  analysis = nullptr;
  EXPECT_FALSE(VEXITimeAnalysisLines_var(object).IsNull());
}

TEST_F(KORPLMSpaceTest, GivesAnInterfaceOfTheObject) {
  const Analysis_var analysis = NewAnalysis("TA");
  void* out = nullptr;
  ASSERT_EQ(
      ResolutionSpace()->ResolveComponent(IdentificatorOf(*analysis).Get(), VEXITimeAnalysisLines::ClassId(), &out),
      S_OK);
  const auto lines = VEXITimeAnalysisLines_var::Adopt(static_cast<VEXITimeAnalysisLines*>(out));
  EXPECT_TRUE(lines == analysis);
  EXPECT_EQ(ResolutionSpace()->ResolveComponent(IdentificatorOf(*analysis).Get(), KORIPLMSpace::ClassId(), &out),
            E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

TEST_F(KORPLMSpaceTest, GivesNothingAfterTheEndOfTheObject) {
  Analysis_var analysis = NewAnalysis("TA");
  const KORIAdpPLMIdentificator_var identificator = IdentificatorOf(*analysis);
  analysis = nullptr;
  KORBaseUnknown_var object;
  EXPECT_EQ(Resolve(identificator, object), E_FAIL);
  EXPECT_TRUE(object.IsNull());
}

// Resolves an identificator while it is itself being destroyed.
class LooksAtItsEnd : public KORBaseUnknown {
 public:
  LooksAtItsEnd(KORIAdpPLMIdentificator_var identificator, Analysis_var held, long& status)
      : _Identificator(std::move(identificator)), _Held(std::move(held)), _Status(status) {}
  ~LooksAtItsEnd() override {
    _Held = nullptr;  // its last reference: it is going to be destroyed after this object
    KORBaseUnknown_var object;
    _Status = Resolve(_Identificator, object);
  }

 private:
  KORIAdpPLMIdentificator_var _Identificator;
  Analysis_var _Held;
  long& _Status;
};

TEST_F(KORPLMSpaceTest, ObjectWhoseEndIsToComeIsNotRevived) {
  long status = S_OK;
  {
    Analysis_var analysis = NewAnalysis("TA");
    const KORIAdpPLMIdentificator_var identificator = IdentificatorOf(*analysis);
    KORBaseUnknown_var::Adopt(new LooksAtItsEnd(identificator, std::move(analysis), status));
  }
  EXPECT_EQ(status, E_FAIL);
}

// An object whose extensions and members go while its identificator is asked for it.
class ResolvesItself : public KORPLMObject {
 public:
  explicit ResolvesItself(long& status) : _Status(status) {}
  ~ResolvesItself() override {
    KORBaseUnknown_var object;
    _Status = Resolve(IdentificatorOf(*this), object);
  }

 private:
  long& _Status;
};

TEST_F(KORPLMSpaceTest, ObjectAtItsEndIsNotRevived) {
  long status = S_OK;
  KORBaseUnknown_var::Adopt(new ResolvesItself(status));
  EXPECT_EQ(status, E_FAIL);
}

TEST_F(KORPLMSpaceTest, LocalObjectIsResolvedUntilItsEnd) {
  KORIAdpPLMIdentificator_var identificator;
  {
    VEXTimeAnalysisRepReference analysis;
    identificator = IdentificatorOf(analysis);
    KORBaseUnknown_var object;
    EXPECT_EQ(Resolve(identificator, object), S_OK);
    EXPECT_EQ(object.Get(), analysis.GetImpl(0));
  }
  KORBaseUnknown_var object;
  EXPECT_EQ(Resolve(identificator, object), E_FAIL);
}

class ForeignIdentificator final : public KORImplements<KORIAdpPLMIdentificator> {
 public:
  long IsSameAs(KORIAdpPLMIdentificator* /*other*/, unsigned char& same) override {
    same = 0;
    return S_OK;
  }
};

TEST_F(KORPLMSpaceTest, WrongArgumentsAreRefused) {
  KORBaseUnknown_var object;
  EXPECT_EQ(Resolve(NULL_var, object), E_INVALIDARG);
  EXPECT_EQ(Resolve(KORIAdpPLMIdentificator_var::Adopt(new ForeignIdentificator), object), E_INVALIDARG);
  const Analysis_var analysis = NewAnalysis("TA");
  EXPECT_EQ(ResolutionSpace()->ResolveComponent(IdentificatorOf(*analysis).Get(), KORBaseUnknown::ClassId(), nullptr),
            E_INVALIDARG);
}

TEST_F(KORPLMSpaceTest, FaultsComeWithNull) {
  const Analysis_var analysis = NewAnalysis("TA");
  KORSession::Current().InjectFault("ResolveComponent", E_FAIL);
  KORBaseUnknown_var object;
  EXPECT_EQ(Resolve(IdentificatorOf(*analysis), object), E_FAIL);
  EXPECT_TRUE(object.IsNull());

  KORSession::Current().InjectFault("GetResolutionSpace", E_INVALIDARG);
  int anything = 0;
  auto* space = reinterpret_cast<KORIPLMSpace*>(&anything);
  EXPECT_EQ(KORPLMSpaceServices::GetResolutionSpace(space, 0, KORPLMSpaceServices::Kor3DSpace), E_INVALIDARG);
  EXPECT_EQ(space, nullptr);
}

TEST(TryAddRefTest, CountsWhileTheObjectLives) {
  auto* const object = new KORBaseUnknown;
  EXPECT_TRUE(object->TryAddRef());
  EXPECT_EQ(object->Release(), 1u);
  EXPECT_EQ(object->Release(), 0u);
}

}  // namespace
