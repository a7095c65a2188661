// Proxies: the type that they stand for, and the values that they hand on to a new object.
#include "platform/services/KORCkePLMCoreServices.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

using Proxy_var = KORHandle<KORCkeProxy>;
using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;

constexpr const char* AnalysisType = "VEXTimeAnalysisRepReference";

KORIType_var FindType(const char* name = AnalysisType) {
  return KORKnowledgeTypes::Current().Find(name);
}

Proxy_var NewProxy(const char* type = AnalysisType) {
  return Proxy_var::Adopt(new KORCkeProxy(type));
}

long Fill(const KORIInstance_var& object, const KORIType_var& type, const KORIInstance_var& proxy) {
  return KORCkePLMCoreServices::FillAttributesFromProxyOrBusinessLogicOnObject(object, type, nullptr, proxy, nullptr,
                                                                               1);
}

// All attributes of an analysis as "name=value", with a blank behind each.
std::string AttributesOf(const Analysis_var& analysis) {
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  EXPECT_EQ(analysis->GetAllValues(names, values), S_OK);
  std::string attributes;
  for (int position = 1; position <= names.Size(); ++position) {
    attributes.append(names[position].Bytes()).append("=").append(values[position].Bytes()).append(" ");
  }
  return attributes;
}

class ProxyTest : public testing::Test {
 protected:
  const KORFreshSession _Session;
  const Analysis_var _Analysis = KORModel::Current().CreateTimeAnalysis("TA");
};

// The type of a proxy

TEST_F(ProxyTest, TypeIsTheOneThatTheSessionHas) {
  KORIType_var type;
  EXPECT_EQ(KORCkePLMCoreServices::RetrieveTypeFromProxy(NewProxy(), type), S_OK);
  EXPECT_TRUE(type == FindType());
}

TEST_F(ProxyTest, TypeThatTheSessionDoesNotHaveIsNull) {
  KORIType_var type = FindType();
  EXPECT_EQ(KORCkePLMCoreServices::RetrieveTypeFromProxy(NewProxy("Shape"), type), E_FAIL);
  EXPECT_TRUE(type.IsNull());
  KORKnowledgeTypes::Current().Define("Shape", {});
  EXPECT_EQ(KORCkePLMCoreServices::RetrieveTypeFromProxy(NewProxy("Shape"), type), S_OK);
  EXPECT_EQ(type->Name(), "Shape");
}

TEST_F(ProxyTest, WhatIsNoProxyHasNoType) {
  KORIType_var type = FindType();
  EXPECT_EQ(KORCkePLMCoreServices::RetrieveTypeFromProxy(NULL_var, type), E_INVALIDARG);
  EXPECT_TRUE(type.IsNull());
  type = FindType();
  EXPECT_EQ(KORCkePLMCoreServices::RetrieveTypeFromProxy(_Analysis, type), E_INVALIDARG);
  EXPECT_TRUE(type.IsNull());
}

// The values of a proxy

TEST_F(ProxyTest, HandsOnTheValuesThatItHasOfTheType) {
  const Proxy_var proxy = NewProxy();
  proxy->GetAttributes().Set("V_Name", KORUnicodeString("grip"));
  proxy->GetAttributes().Set("V_TotalTime", 0.1);
  proxy->GetAttributes().Set("Colour", KORUnicodeString("red"));
  _Analysis->SetValue("V_Subsystem", KORUnicodeString("MTM"));
  _Analysis->SetValue("V_Name", KORUnicodeString("before"));
  EXPECT_EQ(Fill(_Analysis, FindType(), proxy), S_OK);
  EXPECT_EQ(AttributesOf(_Analysis), "PLM_ExternalID=TA V_Name=grip V_Subsystem=MTM V_TotalTime=0.1 ");
}

TEST_F(ProxyTest, HandsOnEachValueWithItsType) {
  KORListValKORAttributeInfos attributes;
  for (const char* name : {"text", "real", "integer", "boolean", "object"}) {
    attributes.Append(KORAttributeInfos(name, false));
  }
  KORKnowledgeTypes::Current().Define("All", attributes);
  const Proxy_var proxy = NewProxy("All");
  proxy->GetAttributes().Set("text", KORUnicodeString("5"));
  proxy->GetAttributes().Set("real", 5.0);
  proxy->GetAttributes().Set("integer", 5);
  proxy->GetAttributes().Set("boolean", static_cast<unsigned char>(1));
  proxy->GetAttributes().Set("object", KORBaseUnknown_var(_Analysis));
  const auto target = KORHandle<KORPLMObject>::Adopt(new KORPLMObject);
  target->GetAttributes().Set("text", 1.0);  // a value of another type gives way
  EXPECT_EQ(Fill(target, FindType("All"), proxy), S_OK);

  const KORKeyedValues& filled = target->GetAttributes();
  KORUnicodeString text;
  double real = 0.0;
  int integer = 0;
  unsigned char boolean = 0;
  KORBaseUnknown_var object;
  EXPECT_EQ(filled.Get("text", text), S_OK);
  EXPECT_EQ(text, "5");
  EXPECT_EQ(filled.Get("real", real), S_OK);
  EXPECT_EQ(real, 5.0);
  EXPECT_EQ(filled.Get("integer", integer), S_OK);
  EXPECT_EQ(integer, 5);
  EXPECT_EQ(filled.Get("boolean", boolean), S_OK);
  EXPECT_EQ(boolean, 1);
  EXPECT_EQ(filled.Get("object", object), S_OK);
  EXPECT_TRUE(object == _Analysis);
}

TEST_F(ProxyTest, AnObjectMayBeItsOwnProxy) {
  _Analysis->SetValue("V_Name", KORUnicodeString("a name that is longer than a short text"));
  const std::string before = AttributesOf(_Analysis);
  EXPECT_EQ(Fill(_Analysis, FindType(), _Analysis), S_OK);
  EXPECT_EQ(AttributesOf(_Analysis), before);
}

// An instance that is not of the model.
class Foreign final : public KORImplements<KORIInstance> {
 public:
  KORIValue* GetAttribute(const KORUnicodeString& /*name*/) override { return nullptr; }
};

TEST_F(ProxyTest, WhatCannotBeFilledStays) {
  const Proxy_var proxy = NewProxy();
  proxy->GetAttributes().Set("V_Name", KORUnicodeString("grip"));
  const KORIInstance_var foreign = KORHandle<Foreign>::Adopt(new Foreign);
  EXPECT_EQ(Fill(NULL_var, FindType(), proxy), E_INVALIDARG);
  EXPECT_EQ(Fill(_Analysis, NULL_var, proxy), E_INVALIDARG);
  EXPECT_EQ(Fill(_Analysis, FindType(), NULL_var), E_INVALIDARG);
  EXPECT_EQ(Fill(foreign, FindType(), proxy), E_INVALIDARG);
  EXPECT_EQ(Fill(_Analysis, FindType(), foreign), E_INVALIDARG);
  EXPECT_EQ(AttributesOf(_Analysis), "PLM_ExternalID=TA ");
}

}  // namespace
