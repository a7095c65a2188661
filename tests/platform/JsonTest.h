// What the tests of the JSON document share.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/document/KOROmxJson.h"
#include "tests/support/TemporaryFolder.h"

namespace platformtest {

inline KOROmxJsonObject ReadJsonFile(const std::string& path) {
  return KOROmxJsonObject(KOROmxFilePath(KOROmxUTF8String(KORUnicodeString(std::string_view(path)))));
}

/// The object of a file with that content.
inline KOROmxJsonObject ReadJson(const std::string& content) {
  const support::TemporaryFolder folder;
  return ReadJsonFile(folder.Write("test.json", content));
}

inline std::string TextOf(const KOROmxJsonObject& object) {
  return std::string(object.ToString().Bytes());
}

inline std::vector<std::string> KeysOf(const KOROmxJsonObject& object) {
  std::vector<std::string> keys;
  KOROmxBaseIterVar walk = object.GetIterator();
  for (KOROmxKeyString key; walk.nextItem(key);) keys.emplace_back(key.Bytes());
  return keys;
}

/// Objects one in the other, `depth` of them: {"a":{"a":...{}}}.
inline std::string NestedObjects(int depth) {
  std::string text;
  for (int level = 1; level < depth; ++level) text += "{\"a\":";
  return text + "{" + std::string(static_cast<std::size_t>(depth), '}');
}

}  // namespace platformtest
