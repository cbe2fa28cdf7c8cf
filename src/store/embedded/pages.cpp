#include "store/embedded/pages.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace store::embedded {
namespace {

constexpr std::int64_t kAheadHeader = 32, kFrameHeader = 24;
constexpr std::int64_t kFrame = kFrameHeader + static_cast<std::int64_t>(kPageBytes);
constexpr std::string_view kAheadMagic("\x37\x7f\x06\x82", 4),
    kRollbackMagic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);

// What a disk refuses it may give at the second time of asking: here each byte counts.
std::size_t readAt(const LockFile& file, std::int64_t at, char* bytes, std::size_t size) {
  ssize_t done = file.isOpen() ? -1 : 0;
  for (int tries = 0; done < 0 && tries < 4; ++tries) done = ::pread(file.descriptor(), bytes, size, at);
  return done > 0 ? static_cast<std::size_t>(done) : 0;
}

std::int64_t sizeOf(const LockFile& file) {
  struct stat info {};
  return file.isOpen() && ::fstat(file.descriptor(), &info) == 0 ? info.st_size : 0;
}

// The running sum of a journal written ahead: two words, over words of 4 bytes in this machine's order.
struct Sum {
  std::uint32_t a = 0, b = 0;
  bool operator==(const Sum&) const = default;

  Sum over(const char* bytes, std::size_t size) const {
    Sum sum = *this;
    for (std::size_t i = 0; i + 8 <= size; i += 8) {
      std::uint32_t words[2];
      std::memcpy(words, bytes + i, sizeof words);
      sum.a += words[0] + sum.b;
      sum.b += words[1] + sum.a;
    }
    return sum;
  }
};

Sum sumAt(const char* bytes) { return {bigEndian(bytes, 4), bigEndian(bytes + 4, 4)}; }

// One change: the number of the page, the size of the database if it ends a transaction, two words of salt
// that tell this use of the file from the one before, the sum, the page.
struct Frame {
  std::string bytes = std::string(static_cast<std::size_t>(kFrame), '\0');

  std::uint32_t page() const { return bigEndian(bytes.data(), 4); }
  bool commits() const { return bigEndian(bytes.data() + 4, 4) != 0; }
  std::string_view salt() const { return std::string_view(bytes).substr(8, 8); }
  Sum told() const { return sumAt(bytes.data() + 16); }
  Sum sumAfter(const Sum& before) const {
    return before.over(bytes.data(), 8).over(bytes.data() + kFrameHeader, kPageBytes);
  }
  // The page for which the sum would be right: the sum is linear in its words, so that one step tells for
  // all.
  std::uint32_t pageBySum(const Sum& before, std::uint32_t most) const {
    Frame other = *this, unit;
    std::memset(other.bytes.data(), 0, 4);
    unit.bytes[0] = 1;
    const Sum base = other.sumAfter(before), step = unit.sumAfter({}), goal = told();
    for (std::uint32_t page = 1; page <= most; ++page) {
      const std::uint32_t word = __builtin_bswap32(page);
      if (base.a + word * step.a == goal.a && base.b + word * step.b == goal.b) return page;
    }
    return 0;
  }
};

}  // namespace

Code Pages::open(const Family& family) {
  for (const auto& [file, path] :
       {std::pair(&database_, &family.database), std::pair(&journal_, &family.journal)}) {
    const Code code = file->open(*path);
    if (code != kOk && errno != ENOENT) return code;
  }
  const std::int64_t bytes = sizeOf(database_), journal = sizeOf(journal_);
  count_ = static_cast<std::uint32_t>((bytes + static_cast<std::int64_t>(kPageBytes) - 1) /
                                      static_cast<std::int64_t>(kPageBytes));
  char magic[8] = {};
  readAt(journal_, 0, magic, sizeof magic);
  rollback_ = std::string_view(magic, 8) == kRollbackMagic;
  if (rollback_) {
    readRollback(journal);
  } else if (std::any_of(magic, magic + 8, [](char c) { return c != 0; })) {
    readAhead(journal);  // what damage has made of the head, too
  }
  return kOk;
}

// Each change is judged by itself, since the sum before it stands there, too: the damage of one does not
// take along those behind it.
void Pages::readAhead(std::int64_t size) {
  if (size < kAheadHeader + kFrame) return;
  char header[kAheadHeader];
  readAt(journal_, 0, header, sizeof header);
  Sum before = sumAt(header + 24);
  const bool headed = Sum{}.over(header, 24) == before && std::string_view(header, 4) == kAheadMagic;
  std::string salt(header + 16, 8);
  bool known = headed, broken = !headed;  // known: `before` is what the change before this one has written
  const auto most = count_ + static_cast<std::uint32_t>(size / kFrame) + 1;
  struct Change {
    std::uint32_t page;
    std::int64_t at;
    bool sound;
  };
  std::vector<Change> changes;
  std::size_t committed = 0, soundly = 0;
  Frame frame;
  for (std::int64_t at = kAheadHeader; at + kFrame <= size; at += kFrame) {
    if (readAt(journal_, at, frame.bytes.data(), frame.bytes.size()) < frame.bytes.size()) continue;
    if (!headed && at == kAheadHeader) salt = frame.salt();
    const bool whole = known && frame.sumAfter(before) == frame.told();
    if (!whole && frame.salt() != salt) {  // an earlier use of the file, or nothing that could be told
      known = false;
      continue;
    }
    std::uint32_t page = frame.page();
    if (!whole) {
      broken = true;
      if (const std::uint32_t other = known ? frame.pageBySum(before, most) : 0) page = other;
    }
    before = frame.told();
    known = true;
    if (page == 0 || page > most) continue;
    changes.push_back({page, at + kFrameHeader, !broken});
    if (frame.commits()) committed = changes.size();
    if (frame.commits() && !broken) soundly = changes.size();
  }
  hole_ = committed > soundly;
  for (std::size_t i = 0; i < committed; ++i) {
    const Version version{changes[i].at, i + 1};
    newest_[changes[i].page] = version;
    if (i < soundly) sound_[changes[i].page] = version;
    count_ = std::max(count_, changes[i].page);
  }
}

// What a change in hand had overwritten. A journal without a head was done with.
void Pages::readRollback(std::int64_t size) {
  for (std::int64_t header = 0; header >= 0 && header + 28 <= size;) header = readSegment(header, size);
  sound_ = newest_;
}

// Where the next segment begins; below 0 when there is none.
std::int64_t Pages::readSegment(std::int64_t header, std::int64_t size) {
  char head[28];
  readAt(journal_, header, head, sizeof head);
  if (std::string_view(head, 8) != kRollbackMagic) return -1;
  const std::int64_t records = bigEndian(head + 8, 4), sector = std::max(bigEndian(head + 20, 4), 512U);
  const std::uint32_t nonce = bigEndian(head + 12, 4);
  constexpr std::int64_t kRecord = static_cast<std::int64_t>(kPageBytes) + 8;
  std::int64_t at = header + sector;
  std::string record(static_cast<std::size_t>(kRecord), '\0');
  for (std::int64_t i = 0; i < records && at + kRecord <= size; ++i, at += kRecord) {
    if (readAt(journal_, at, record.data(), record.size()) < record.size()) continue;
    std::uint32_t sum = nonce;
    for (int byte = static_cast<int>(kPageBytes) - 200; byte > 0; byte -= 200)
      sum += static_cast<unsigned char>(record[static_cast<std::size_t>(byte) + 4]);
    const std::uint32_t page = bigEndian(record.data(), 4);
    if (sum == bigEndian(record.data() + kPageBytes + 4, 4) && page)
      newest_.try_emplace(page, Version{at + 4, 1});
    else
      hole_ = true;
  }
  if (records == 0) return -1;
  return (at + sector - 1) / sector * sector;
}

bool Pages::read(std::uint32_t page, const Versions& versions, std::string& bytes) const {
  bytes.assign(kPageBytes, '\0');
  const auto found = versions.find(page);
  if (found != versions.end()) return readAt(journal_, found->second.at, bytes.data(), kPageBytes) > 0;
  return readAt(database_, (static_cast<std::int64_t>(page) - 1) * static_cast<std::int64_t>(kPageBytes),
                bytes.data(), kPageBytes) > 0;
}

bool Pages::read(std::uint32_t page, std::string& bytes) const { return read(page, newest_, bytes); }
bool Pages::readSound(std::uint32_t page, std::string& bytes) const { return read(page, sound_, bytes); }

std::size_t Pages::age(std::uint32_t page) const {
  const auto found = newest_.find(page);
  return found == newest_.end() ? 0 : found->second.age;
}

}  // namespace store::embedded
