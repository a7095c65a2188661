// UTF-8 byte by byte: what the text type is made of.
#include "platform/base/KORUtf8.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace korutf8 {

namespace {

constexpr std::uint64_t HighBits = 0x8080808080808080u;
constexpr std::size_t BlockSize = sizeof(std::uint64_t);

std::uint64_t BlockAt(std::string_view bytes, std::size_t offset) {
  std::uint64_t block = 0;
  std::memcpy(&block, bytes.data() + offset, BlockSize);
  return block;
}

unsigned char ByteAt(std::string_view bytes, std::size_t offset) {
  return static_cast<unsigned char>(bytes[offset]);
}

bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

// Bytes of a block that begin a character: all but those with the bits 10 at their head.
std::size_t CountHeads(std::uint64_t block) {
  const std::uint64_t continuations = block & HighBits & ~(block << 1);
  return BlockSize - static_cast<std::size_t>(std::popcount(continuations));
}

// Number of bytes of the character that `head` begins; 0 if no character begins so.
std::size_t LengthBehind(unsigned char head) {
  if (head < 0x80) return 1;
  if (head < 0xC2) return 0;  // a continuation, or an overlong form of two bytes
  if (head < 0xE0) return 2;
  if (head < 0xF0) return 3;
  return head < 0xF5 ? 4 : 0;
}

// Number of bytes of the valid character at `offset`; 0 if none stands there.
std::size_t ValidLengthAt(std::string_view bytes, std::size_t offset) {
  const unsigned char head = ByteAt(bytes, offset);
  const std::size_t length = LengthBehind(head);
  if (length <= 1) return length;
  if (bytes.size() - offset < length) return 0;
  for (std::size_t index = 1; index < length; ++index) {
    if (!IsContinuation(ByteAt(bytes, offset + index))) return 0;
  }
  const unsigned char second = ByteAt(bytes, offset + 1);
  const bool overlong = (head == 0xE0 && second < 0xA0) || (head == 0xF0 && second < 0x90);
  const bool surrogate = head == 0xED && second >= 0xA0;
  const bool beyond = head == 0xF4 && second >= 0x90;
  return overlong || surrogate || beyond ? 0 : length;
}

}  // namespace

bool IsAscii(std::string_view bytes) {
  std::size_t offset = 0;
  for (; bytes.size() - offset >= BlockSize; offset += BlockSize) {
    if ((BlockAt(bytes, offset) & HighBits) != 0) return false;
  }
  for (; offset < bytes.size(); ++offset) {
    if (ByteAt(bytes, offset) >= 0x80) return false;
  }
  return true;
}

bool IsValid(std::string_view bytes) {
  std::size_t offset = 0;
  while (offset < bytes.size()) {
    if (bytes.size() - offset >= BlockSize && (BlockAt(bytes, offset) & HighBits) == 0) {
      offset += BlockSize;
      continue;
    }
    const std::size_t length = ValidLengthAt(bytes, offset);
    if (length == 0) return false;
    offset += length;
  }
  return true;
}

std::size_t CountCharacters(std::string_view bytes) {
  std::size_t count = 0;
  std::size_t offset = 0;
  for (; bytes.size() - offset >= BlockSize; offset += BlockSize) count += CountHeads(BlockAt(bytes, offset));
  for (; offset < bytes.size(); ++offset) count += IsContinuation(ByteAt(bytes, offset)) ? 0 : 1;
  return count;
}

std::size_t OffsetOf(std::string_view bytes, std::size_t position) {
  std::size_t offset = 0;
  while (bytes.size() - offset >= BlockSize) {
    const std::size_t heads = CountHeads(BlockAt(bytes, offset));
    if (heads > position) break;
    position -= heads;
    offset += BlockSize;
  }
  // A block may end inside a character, whose other bytes count as no character.
  for (; offset < bytes.size(); ++offset) {
    if (IsContinuation(ByteAt(bytes, offset))) continue;
    if (position == 0) return offset;
    --position;
  }
  return bytes.size();
}

char32_t ReadCharacter(std::string_view bytes, std::size_t& offset) {
  const unsigned char head = ByteAt(bytes, offset++);
  if (head < 0x80) return head;
  const std::size_t length = LengthBehind(head);
  char32_t character = head & (0x7Fu >> length);
  for (std::size_t index = 1; index < length; ++index) {
    character = (character << 6) | (ByteAt(bytes, offset++) & 0x3Fu);
  }
  return character;
}

void AppendCharacter(std::string& bytes, char32_t character) {
  const auto append = [&bytes](char32_t byte) { bytes += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) character = 0xFFFD;
  if (character < 0x80) {
    append(character);
    return;
  }
  if (character < 0x800) {
    append(0xC0 | (character >> 6));
  } else {
    if (character < 0x10000) {
      append(0xE0 | (character >> 12));
    } else {
      append(0xF0 | (character >> 18));
      append(0x80 | ((character >> 12) & 0x3F));
    }
    append(0x80 | ((character >> 6) & 0x3F));
  }
  append(0x80 | (character & 0x3F));
}

}  // namespace korutf8
