#include "tables/TextFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include "tables/FileReplacer.h"
#include "tables/TableError.h"

namespace pescavo {

namespace {

// Code points of the bytes 0x80..0x9F; the five bytes Windows-1252 leaves undefined map to
// the C1 controls of the same value, so every byte survives a round trip.
constexpr std::array<char32_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

int cp1252Byte(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
  for (std::size_t k = 0; k < kCp1252High.size(); ++k) {
    if (kCp1252High[k] == c) return static_cast<int>(0x80 + k);
  }
  return -1;
}

[[noreturn]] void throwSystemError(const std::string& path, const std::string& what, int error) {
  throw TableError(path, 0, 0, what + " (" + std::strerror(error) + ")");
}

}  // namespace

std::size_t utf8SequenceLength(std::string_view bytes, std::size_t i) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(bytes[k]); };
  const unsigned char lead = byte(i);
  if (lead < 0x80) return 1;
  std::size_t length = 0;
  char32_t c = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    c = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    c = lead & 0x0F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    c = lead & 0x07;
  } else {
    return 0;
  }
  if (i + length > bytes.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(i + k) & 0xC0) != 0x80) return 0;
    c = (c << 6) | (byte(i + k) & 0x3F);
  }
  // Overlong forms, surrogates and code points beyond U+10FFFF are not UTF-8.
  if ((length == 3 && c < 0x800) || (length == 4 && c < 0x10000)) return 0;
  if ((c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF) return 0;
  return length;
}

char32_t decodeUtf8At(std::string_view text, std::size_t i, std::size_t length) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  if (length == 1) return byte(i);
  char32_t c = byte(i) & (length == 2 ? 0x1F : length == 3 ? 0x0F : 0x07);
  for (std::size_t k = 1; k < length; ++k) c = (c << 6) | (byte(i + k) & 0x3F);
  return c;
}

namespace {

// What a path that is not a regular file names, for the refusal.
const char* fileKind(mode_t mode) {
  if (S_ISDIR(mode)) return "a folder";
  if (S_ISFIFO(mode)) return "a pipe";
  if (S_ISCHR(mode)) return "a character device";
  if (S_ISBLK(mode)) return "a block device";
  if (S_ISSOCK(mode)) return "a socket";
  return "not a regular file";
}

[[noreturn]] void refuseKind(const std::string& path, mode_t mode) {
  throw TableError(path, 0, 0,
                   std::string("expected a table file, found ") + fileKind(mode) +
                       " (only regular files are read)");
}

[[noreturn]] void refuseSize(const std::string& path, std::uint64_t size) {
  throw TableError(path, 0, 0,
                   "expected a table of at most 64 MiB (" + std::to_string(TableFile::kMaxBytes) +
                       " bytes), found " + std::to_string(size) + " bytes");
}

}  // namespace

TableFile::TableFile(const std::string& path) : m_path(path) {
  // Looked at before opening: opening a pipe for reading waits for a writer.
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) throwSystemError(path, "cannot be opened", errno);
  if (!S_ISREG(info.st_mode)) refuseKind(path, info.st_mode);
  if (static_cast<std::uint64_t>(info.st_size) > kMaxBytes)
    refuseSize(path, static_cast<std::uint64_t>(info.st_size));
  // Non-blocking all the same, in case the path was replaced by a pipe since.
  m_fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (m_fd < 0) throwSystemError(path, "cannot be opened", errno);
  if (::fstat(m_fd, &info) != 0) {
    const int error = errno;
    ::close(m_fd);
    throwSystemError(path, "cannot be read", error);
  }
  if (!S_ISREG(info.st_mode) || static_cast<std::uint64_t>(info.st_size) > kMaxBytes) {
    ::close(m_fd);
    if (!S_ISREG(info.st_mode)) refuseKind(path, info.st_mode);
    refuseSize(path, static_cast<std::uint64_t>(info.st_size));
  }
  m_size = static_cast<std::uint64_t>(info.st_size);
}

TableFile::~TableFile() {
  if (m_fd >= 0) ::close(m_fd);
}

std::size_t TableFile::read(char* into, std::size_t room) {
  for (;;) {
    const ssize_t got = ::read(m_fd, into, room);
    if (got < 0) {
      if (errno == EINTR) continue;
      throwSystemError(m_path, "cannot be read", errno);
    }
    m_done += static_cast<std::uint64_t>(got);
    if (m_done > kMaxBytes) refuseSize(m_path, m_done);
    return static_cast<std::size_t>(got);
  }
}

std::string readFileBytes(const std::string& path) {
  TableFile file(path);
  std::string bytes;
  // One read when the file keeps its length; a file that grows meanwhile is read on.
  bytes.resize(static_cast<std::size_t>(file.size()) + 1);
  std::size_t have = 0;
  for (;;) {
    if (have == bytes.size()) bytes.resize(bytes.size() * 2);
    const std::size_t got = file.read(bytes.data() + have, bytes.size() - have);
    if (got == 0) break;
    have += got;
  }
  bytes.resize(have);
  return bytes;
}

void writeFileAtomic(const std::string& path, std::string_view bytes) {
  try {
    FileReplacer::disk().replace(path, {bytes}, NewFileMode::ReadableByAll);
  } catch (const FileReplaceError& error) {
    const bool renaming = error.step() == FileReplaceError::Step::Rename;
    throwSystemError(path, renaming ? "cannot be replaced" : "cannot be written", error.error());
  }
}

bool isValidUtf8(std::string_view bytes) {
  // Tables are mostly ASCII: eight bytes at a time while none has its top bit set.
  for (std::size_t i = 0; i < bytes.size();) {
    if (i + 8 <= bytes.size()) {
      std::uint64_t word;
      std::memcpy(&word, bytes.data() + i, sizeof word);
      if ((word & 0x8080808080808080u) == 0) {
        i += 8;
        continue;
      }
    }
    if (static_cast<unsigned char>(bytes[i]) < 0x80) {
      ++i;
      continue;
    }
    const std::size_t length = utf8SequenceLength(bytes, i);
    if (length == 0) return false;
    i += length;
  }
  return true;
}

std::string windows1252ToUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char ch : bytes) {
    const auto byte = static_cast<unsigned char>(ch);
    appendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kCp1252High[byte - 0x80] : byte);
  }
  return text;
}

DecodedText decodeText(std::string bytes) {
  DecodedText decoded;
  if (isValidUtf8(bytes)) {
    if (bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) bytes.erase(0, 3);
    decoded.text = std::move(bytes);
    decoded.encoding = Encoding::Utf8;
    return decoded;
  }
  decoded.encoding = Encoding::Windows1252;
  decoded.text = windows1252ToUtf8(bytes);
  return decoded;
}

std::string encodeText(const std::string& utf8, Encoding encoding) {
  if (encoding == Encoding::Utf8) return utf8;
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    std::size_t length = utf8SequenceLength(utf8, i);
    if (length == 0) return utf8;  // not text we produced; leave it alone
    const int byte = cp1252Byte(decodeUtf8At(utf8, i, length));
    if (byte < 0) return utf8;
    out += static_cast<char>(byte);
    i += length;
  }
  // Code-page bytes that happen to form valid UTF-8 would be read back as other characters;
  // UTF-8 itself reads back as the same text.
  if (out != utf8 && isValidUtf8(out)) return utf8;
  return out;
}

std::vector<std::string_view> splitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    const std::size_t next = end == std::string_view::npos ? text.size() : end + 1;
    if (end == std::string_view::npos)
      end = text.size();
    else if (end > start && text[end - 1] == '\r')
      --end;
    lines.push_back(text.substr(start, end - start));
    start = next;
  }
  return lines;
}

std::string_view trimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(' ');
  return text.substr(first, last - first + 1);
}

}  // namespace pescavo
