// The streams that are stored on a representation.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/KORUnicodeString.h"

/// Names a stream. Two streams of one representation differ in at least one of the two.
struct KORStreamName {
  KORUnicodeString Format;
  KORUnicodeString Name;

  friend bool operator==(const KORStreamName&, const KORStreamName&) = default;
};

/// The bytes of a stream. They never change; a stream that gets another content gets other bytes, so that who holds
/// these keeps the content that it found.
using KORStreamBytes = std::shared_ptr<const std::string>;

struct KORStream {
  KORStreamName Name;
  KORStreamBytes Bytes;  // not null
};

/// Streams in the order in which they were added. Copies share the bytes.
class KORStreamList {
 public:
  /// The stream of that format and name, or null. What the functions give is valid until the list is changed.
  const KORStream* Find(const KORStreamName& name) const {
    return FindWhere([&name](const KORStream& stream) { return stream.Name == name; });
  }
  /// The first stream of that name, whatever its format, or null.
  const KORStream* FindByName(const KORUnicodeString& name) const {
    return FindWhere([&name](const KORStream& stream) { return stream.Name.Name == name; });
  }

  /// Adds a stream; one that has that format and name already gets the new content and keeps its place.
  void Put(const KORStreamName& name, std::string content) {
    KORStream stream{name, std::make_shared<const std::string>(std::move(content))};
    if (const KORStream* const present = Find(name); present != nullptr) {
      _Streams[PositionOf(*present)] = std::move(stream);
    } else {
      _Streams.push_back(std::move(stream));
    }
  }

  /// Removes a stream of this list, as one of the Find functions gave it.
  void Remove(const KORStream& stream) {
    _Streams.erase(_Streams.begin() + static_cast<std::ptrdiff_t>(PositionOf(stream)));
  }

  bool IsEmpty() const { return _Streams.empty(); }
  std::size_t Size() const { return _Streams.size(); }
  auto begin() const { return _Streams.begin(); }
  auto end() const { return _Streams.end(); }

 private:
  template <class Condition>
  const KORStream* FindWhere(Condition condition) const {
    const auto found = std::find_if(_Streams.begin(), _Streams.end(), condition);
    return found == _Streams.end() ? nullptr : &*found;
  }

  std::size_t PositionOf(const KORStream& stream) const { return static_cast<std::size_t>(&stream - _Streams.data()); }

  std::vector<KORStream> _Streams;
};
