#include "store/group_log_bytes.h"

#include <utility>

#include "store/checksum.h"

namespace store {
namespace {

constexpr std::uint32_t kSlotMagic = 0x31535854;    // "TXS1"
constexpr std::uint32_t kNoteMagic = 0x314E5854;    // "TXN1"
constexpr std::uint32_t kRecordMagic = 0x31525854;  // "TXR1"
constexpr std::size_t kPrefix = 8;                  // magic and crc

void putNumber(std::string& out, std::uint64_t value, int bytes) {
  for (int n = 0; n < bytes; ++n) out.push_back(static_cast<char>(value >> (8 * n) & 0xFF));
}

void putText(std::string& out, std::string_view text) {
  putNumber(out, text.size(), 8);
  out.append(text);
}

void putMark(std::string& out, const LogMark& mark) {
  putNumber(out, mark.log, 8);
  putNumber(out, mark.seq, 8);
}

// Takes numbers and texts from the front. What is not there comes out as 0 or empty and sets failed.
struct Reader {
  std::string_view rest;
  bool failed = false;

  std::string_view take(std::uint64_t bytes) {
    failed = failed || bytes > rest.size();
    const std::string_view taken = failed ? std::string_view() : rest.substr(0, bytes);
    rest.remove_prefix(taken.size());
    return taken;
  }
  std::uint64_t number(int bytes) {
    std::uint64_t value = 0;
    const std::string_view taken = take(bytes);
    for (std::size_t n = 0; n < taken.size(); ++n)
      value |= std::uint64_t{static_cast<unsigned char>(taken[n])} << (8 * n);
    return value;
  }
  std::string text() { return std::string(take(number(8))); }
  LogMark mark() {
    const std::uint64_t log = number(8), seq = number(8);
    return {log, seq};
  }
};

// Puts magic and crc in front: `bytes` begins with room for them.
std::string seal(std::string bytes, std::uint32_t magic) {
  std::string prefix;
  putNumber(prefix, magic, 4);
  putNumber(prefix, crc32c(std::string_view(bytes).substr(kPrefix)), 4);
  return bytes.replace(0, kPrefix, prefix);
}

// What stands behind magic and crc; a failed reader when they do not belong to it.
Reader unseal(std::string_view bytes, std::uint32_t magic) {
  Reader reader{bytes};
  const bool kind = reader.number(4) == magic;
  const std::uint64_t crc = reader.number(4);
  reader.failed = reader.failed || !kind || crc != crc32c(reader.rest);
  return reader;
}

LogEntry takeEntry(Reader& reader) {
  LogEntry entry;
  entry.archive = reader.text();
  entry.uuid = reader.text();
  entry.previous = reader.mark();
  for (std::uint64_t left = reader.number(8); left > 0 && !reader.failed; --left) {
    LogOperation operation;
    operation.erase = reader.number(1) != 0;
    operation.key = reader.text();
    operation.record = reader.text();
    entry.operations.push_back(std::move(operation));
  }
  return entry;
}

}  // namespace

std::string encodeLogSlot(const LogSlot& slot) {
  std::string bytes(kPrefix, '\0');
  putMark(bytes, slot.mark);
  putNumber(bytes, slot.last, 8);
  putNumber(bytes, slot.tail, 8);
  return seal(std::move(bytes), kSlotMagic);
}

bool decodeLogSlot(std::string_view bytes, LogSlot& slot) {
  Reader reader = unseal(bytes.substr(0, kLogSlotSize), kSlotMagic);
  slot.mark = reader.mark();
  slot.last = reader.number(8);
  slot.tail = reader.number(8);
  return !reader.failed && kLogRecords <= slot.last && slot.last <= slot.tail;
}

std::string encodeLogNote(const LogMark& applied) {
  std::string bytes(kPrefix, '\0');
  putMark(bytes, applied);
  return seal(std::move(bytes), kNoteMagic);
}

bool decodeLogNote(std::string_view bytes, LogMark& applied) {
  Reader reader = unseal(bytes.substr(0, kLogNoteSize), kNoteMagic);
  applied = reader.mark();
  return !reader.failed;
}

std::string encodeLogRecord(const LogMark& mark, const std::vector<LogEntry>& entries) {
  std::string body;
  putNumber(body, entries.size(), 8);
  for (const LogEntry& entry : entries) {
    putText(body, entry.archive);
    putText(body, entry.uuid);
    putMark(body, entry.previous);
    putNumber(body, entry.operations.size(), 8);
    for (const LogOperation& operation : entry.operations) {
      putNumber(body, operation.erase ? 1 : 0, 1);
      putText(body, operation.key);
      putText(body, operation.record);
    }
  }
  std::string bytes(kPrefix, '\0');
  putNumber(bytes, kLogRecordHead + body.size(), 8);
  putMark(bytes, mark);
  return seal(std::move(bytes.append(body)), kRecordMagic);
}

bool decodeLogRecordHead(std::string_view bytes, LogMark& mark, std::uint64_t& size) {
  Reader reader{bytes};
  const bool kind = reader.number(4) == kRecordMagic;
  reader.take(4);
  size = reader.number(8);
  mark = reader.mark();
  return kind && !reader.failed && size >= kLogRecordHead;
}

bool decodeLogRecord(std::string_view bytes, LogRecord& record) {
  Reader reader = unseal(bytes, kRecordMagic);
  reader.take(8);
  record.mark = reader.mark();
  record.entries.clear();
  for (std::uint64_t left = reader.number(8); left > 0 && !reader.failed; --left)
    record.entries.push_back(takeEntry(reader));
  return !reader.failed && reader.rest.empty();
}

}  // namespace store
