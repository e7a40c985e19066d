// Writes pictures as PNG, uncompressed: they are looked at once and thrown away.
#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <string>

#include "support/picture.h"

namespace support {
namespace {

using Bytes = std::string;

void Put32(Bytes& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(value >> shift & 0xFF);
}

std::uint32_t Crc(const Bytes& bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char c : bytes) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320u : 0u);
  }
  return ~crc;
}

std::uint32_t Adler(const Bytes& bytes) {
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (const char c : bytes) {
    a = (a + static_cast<unsigned char>(c)) % 65521;
    b = (b + a) % 65521;
  }
  return b << 16 | a;
}

void PutChunk(Bytes& out, const std::string& type, const Bytes& data) {
  Put32(out, static_cast<std::uint32_t>(data.size()));
  out += type + data;
  Put32(out, Crc(type + data));
}

// A zlib stream of stored blocks.
Bytes Stored(const Bytes& data) {
  constexpr std::size_t kBlock = 65535;
  Bytes out = "\x78\x01";
  for (std::size_t at = 0; at < data.size(); at += kBlock) {
    const std::size_t size = std::min(kBlock, data.size() - at);
    out += at + size == data.size() ? '\1' : '\0';
    for (const std::size_t value : {size, ~size}) {
      out += static_cast<char>(value & 0xFF);
      out += static_cast<char>(value >> 8 & 0xFF);
    }
    out += data.substr(at, size);
  }
  Put32(out, Adler(data));
  return out;
}

}  // namespace

bool SavePng(const Picture& picture, const std::string& path) {
  Bytes rows;
  for (int y = 0; y < picture.height; ++y) {
    rows += '\0';
    for (int x = 0; x < picture.width; ++x) {
      const std::uint32_t pixel = picture.At(x, y);
      for (int shift = 16; shift >= 0; shift -= 8) rows += static_cast<char>(pixel >> shift & 0xFF);
    }
  }
  Bytes header;
  Put32(header, static_cast<std::uint32_t>(picture.width));
  Put32(header, static_cast<std::uint32_t>(picture.height));
  header += Bytes("\x08\x02\0\0\0", 5);  // eight bits, true colour

  Bytes file = "\x89PNG\r\n\x1a\n";
  PutChunk(file, "IHDR", header);
  PutChunk(file, "IDAT", Stored(rows));
  PutChunk(file, "IEND", {});
  std::ofstream out(path, std::ios::binary);
  out.write(file.data(), static_cast<std::streamsize>(file.size()));
  return out.good();
}

}  // namespace support
