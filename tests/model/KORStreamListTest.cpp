// The streams that are stored on a representation: in the order of adding, known by format and name.
#include "platform/model/KORStreamList.h"

#include <gtest/gtest.h>

namespace {

// The streams as "format:name=bytes", with a blank behind each.
std::string TextOf(const KORStreamList& streams) {
  std::string text;
  for (const KORStream& stream : streams) {
    text.append(stream.Name.Format.Bytes()).append(":").append(stream.Name.Name.Bytes());
    text.append("=").append(*stream.Bytes).append(" ");
  }
  return text;
}

KORStreamList ThreeStreams() {
  KORStreamList streams;
  streams.Put({"png", "grip"}, "picture");
  streams.Put({"JSON", "lines"}, "{}");
  streams.Put({"jpg", "grip"}, "photo");
  return streams;
}

TEST(KORStreamListTest, NewOneIsEmpty) {
  const KORStreamList streams;
  EXPECT_TRUE(streams.IsEmpty());
  EXPECT_EQ(streams.Size(), 0u);
  EXPECT_EQ(streams.Find({"png", "grip"}), nullptr);
  EXPECT_EQ(streams.FindByName("grip"), nullptr);
}

TEST(KORStreamListTest, ListsInTheOrderOfAdding) {
  EXPECT_EQ(TextOf(ThreeStreams()), "png:grip=picture JSON:lines={} jpg:grip=photo ");
  EXPECT_EQ(ThreeStreams().Size(), 3u);
  EXPECT_FALSE(ThreeStreams().IsEmpty());
}

TEST(KORStreamListTest, FindsByFormatAndName) {
  const KORStreamList streams = ThreeStreams();
  ASSERT_NE(streams.Find({"jpg", "grip"}), nullptr);
  EXPECT_EQ(*streams.Find({"jpg", "grip"})->Bytes, "photo");
  EXPECT_EQ(streams.Find({"JPG", "grip"}), nullptr);
  EXPECT_EQ(streams.Find({"JSON", "grip"}), nullptr);
}

TEST(KORStreamListTest, FindsTheFirstOfAName) {
  const KORStreamList streams = ThreeStreams();
  ASSERT_NE(streams.FindByName("grip"), nullptr);
  EXPECT_EQ(*streams.FindByName("grip")->Bytes, "picture");
  EXPECT_EQ(streams.FindByName("png"), nullptr);
}

TEST(KORStreamListTest, AnotherContentKeepsThePlace) {
  KORStreamList streams = ThreeStreams();
  const KORStreamBytes before = streams.Find({"png", "grip"})->Bytes;
  streams.Put({"png", "grip"}, "drawing");
  EXPECT_EQ(TextOf(streams), "png:grip=drawing JSON:lines={} jpg:grip=photo ");
  EXPECT_EQ(*before, "picture");
}

TEST(KORStreamListTest, RemovesOne) {
  KORStreamList streams = ThreeStreams();
  streams.Remove(*streams.FindByName("grip"));
  EXPECT_EQ(TextOf(streams), "JSON:lines={} jpg:grip=photo ");
  streams.Remove(*streams.FindByName("grip"));
  EXPECT_EQ(TextOf(streams), "JSON:lines={} ");
}

TEST(KORStreamListTest, CopiesAreListsOfTheirOwn) {
  KORStreamList streams = ThreeStreams();
  const KORStreamList copy = streams;
  EXPECT_EQ(copy.FindByName("lines")->Bytes, streams.FindByName("lines")->Bytes);
  streams.Put({"JSON", "lines"}, "[]");
  EXPECT_EQ(*copy.FindByName("lines")->Bytes, "{}");
}

}  // namespace
