#include "tools/power_loss.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace test {
namespace {

namespace fs = std::filesystem;

// The record of faultio.c, byte by byte.
enum Kind : std::uint8_t {
  kOpen = 1,
  kCreate,
  kWrite,
  kTruncate,
  kRename,
  kUnlink,
  kSync,
  kSyncDirectory,
  kLink,
  kMakeDirectory,
  kRemoveDirectory,
  kAcknowledge
};

struct TraceHead {
  std::uint32_t magic, process;
  std::uint8_t kind, unused;
  std::uint16_t nameLength, otherLength, unused2;
  std::uint64_t inode, offset, length;
};

struct Operation {
  std::uint8_t kind;
  std::uint64_t inode, offset;
  std::string name, other, data;
};

struct Change {  // of a file's bytes, not certain yet
  std::size_t moment;
  bool truncate;
  std::uint64_t offset;
  std::string data;
};

struct File {
  std::string certain;
  std::vector<Change> changes;
};

using Names = std::map<std::string, std::shared_ptr<File>>;

struct NameChange {
  std::size_t moment;
  std::string remove, add;  // either may be empty
  std::shared_ptr<File> file;

  void applyTo(Names& names) const {
    if (!remove.empty()) names.erase(remove);
    if (!add.empty()) names[add] = file;
  }
};

enum class Policy { none, all, prefix, subset, tail, ext4 };
constexpr const char* kPolicyNames[] = {"none", "all", "prefix", "subset", "tail", "ext4"};

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<Operation> readTrace(const std::string& path) {
  const std::string bytes = contentOf(path);
  std::vector<Operation> operations;
  std::size_t at = 0;
  while (at + sizeof(TraceHead) <= bytes.size()) {
    TraceHead head;
    std::memcpy(&head, bytes.data() + at, sizeof head);
    if (head.magic != 0x314F4946) throw std::runtime_error("no trace: " + path);
    at += sizeof head;
    const std::size_t data = head.kind == kWrite || head.kind == kAcknowledge ? head.length : 0;
    const auto take = [&](std::size_t length) {
      at += length;
      return bytes.substr(at - length, length);
    };
    if (at + head.nameLength + head.otherLength + data > bytes.size())
      break;  // killed while it wrote this one
    Operation operation{head.kind, head.inode, head.offset, take(head.nameLength), take(head.otherLength),
                        {}};
    operation.data = take(data);
    operations.push_back(std::move(operation));
  }
  if (operations.empty()) throw std::runtime_error("empty trace: " + path);
  return operations;
}

void lay(std::string& content, std::uint64_t offset, std::string_view data) {
  if (content.size() < offset + data.size()) content.resize(offset + data.size());
  content.replace(offset, data.size(), data);
}

// The directory as the program sees it, and what of it is certain.
class Disk {
 public:
  Disk(const std::string& base, bool syncMakesNamesCertain) : syncMakesNamesCertain_(syncMakesNamesCertain) {
    for (const auto& entry : fs::recursive_directory_iterator(base)) {
      if (!entry.is_regular_file()) continue;
      const auto file = std::make_shared<File>(File{contentOf(entry.path()), {}});
      names_[fs::relative(entry.path(), base).string()] = file;
    }
    certainNames_ = names_;
  }

  void step(const Operation& operation, std::size_t moment);
  void build(const fs::path& directory, Policy policy, std::size_t moment, std::mt19937_64& random) const;
  const std::string& acknowledged() const { return acknowledged_; }

 private:
  std::shared_ptr<File>& fileOf(std::uint64_t inode) {
    std::shared_ptr<File>& file = files_[inode];
    if (!file) file = std::make_shared<File>();
    return file;
  }
  void rename(NameChange change) {
    change.applyTo(names_);
    nameChanges_.push_back(std::move(change));
  }
  void namesAreCertain() {
    for (const NameChange& change : nameChanges_) change.applyTo(certainNames_);
    nameChanges_.clear();
  }

  bool syncMakesNamesCertain_;
  Names names_, certainNames_;
  std::vector<NameChange> nameChanges_;
  std::map<std::uint64_t, std::shared_ptr<File>> files_;
  std::string acknowledged_;
};

void Disk::step(const Operation& operation, std::size_t moment) {
  switch (operation.kind) {
    case kOpen:
      if (const auto known = names_.find(operation.name); known != names_.end())
        files_[operation.inode] = known->second;
      break;
    case kCreate:
      files_[operation.inode] = std::make_shared<File>();
      rename({moment, "", operation.name, files_[operation.inode]});
      break;
    case kWrite:
    case kTruncate:
      fileOf(operation.inode)
          ->changes.push_back({moment, operation.kind == kTruncate, operation.offset, operation.data});
      break;
    case kRename:
    case kLink: {
      const auto known = names_.find(operation.name);
      const auto file = known == names_.end() ? fileOf(operation.inode) : known->second;
      rename({moment, operation.kind == kRename ? operation.name : "", operation.other, file});
      break;
    }
    case kUnlink:
      rename({moment, operation.name, "", nullptr});
      break;
    case kSync: {
      const auto& file = fileOf(operation.inode);
      for (const Change& change : file->changes) {
        if (change.truncate) file->certain.resize(change.offset);
        if (!change.truncate) lay(file->certain, change.offset, change.data);
      }
      file->changes.clear();
      if (syncMakesNamesCertain_) namesAreCertain();
      break;
    }
    case kSyncDirectory:
      namesAreCertain();
      break;
    case kAcknowledge:
      acknowledged_ += operation.data;
      break;
    default:
      break;
  }
}

// One write by the policy subset: lost, or there but for some of its sectors.
void layTorn(std::string& content, const Change& change, std::mt19937_64& random) {
  constexpr std::size_t kSector = 512;
  if (random() % 3 == 0) return;
  for (std::size_t done = 0; done < change.data.size();) {
    const std::size_t toEnd = kSector - (change.offset + done) % kSector;
    const std::string_view piece = std::string_view(change.data).substr(done, toEnd);
    if (random() % 4 != 0) lay(content, change.offset + done, piece);
    done += piece.size();
  }
}

std::string survivor(const File& file, Policy policy, std::size_t horizon, std::mt19937_64& random) {
  std::string content = file.certain;
  for (const Change& change : file.changes) {
    const bool whole = policy == Policy::all || (policy == Policy::prefix && change.moment < horizon) ||
                       (policy == Policy::subset && change.truncate && random() % 2 == 0);
    const std::size_t end = change.offset + change.data.size();
    if (change.truncate && (whole || policy == Policy::tail)) {
      content.resize(change.offset);
    } else if (whole) {
      lay(content, change.offset, change.data);
    } else if (policy == Policy::tail && content.size() < end) {
      content.resize(end);
    } else if (policy == Policy::subset && !change.truncate) {
      layTorn(content, change, random);
    }
  }
  return content;
}

void Disk::build(const fs::path& directory, Policy policy, std::size_t moment,
                 std::mt19937_64& random) const {
  const bool atRandom = policy == Policy::prefix || policy == Policy::subset;
  const std::size_t horizon = atRandom ? random() % (moment + 1) : 0;
  Names names = policy == Policy::all || policy == Policy::tail ? names_ : certainNames_;
  for (const NameChange& change : nameChanges_)
    if (change.moment < horizon) change.applyTo(names);

  fs::remove_all(directory);
  fs::create_directories(directory);
  for (const auto& [name, file] : names) {
    fs::create_directories((directory / name).parent_path());
    std::ofstream(directory / name, std::ios::binary) << survivor(*file, policy, horizon, random);
  }
}

}  // namespace

PowerLossResult cutPower(const PowerLoss& plan) {
  const std::vector<Operation> operations = readTrace(plan.trace);
  Disk disk(plan.base, false), ext4(plan.base, true);
  PowerLossResult result;
  for (std::size_t moment = 0; moment < operations.size(); ++moment) {
    disk.step(operations[moment], moment);
    ext4.step(operations[moment], moment);
    const bool nothingNew = operations[moment].kind == kOpen;
    if (nothingNew || moment % static_cast<std::size_t>(plan.every) != 0) continue;
    for (std::size_t n = 0; n < std::size(kPolicyNames); ++n) {
      const auto policy = static_cast<Policy>(n);
      const bool atRandom = policy == Policy::prefix || policy == Policy::subset;
      for (int seed = 0; seed < (atRandom ? plan.seeds : 1); ++seed) {
        std::mt19937_64 random(moment * 1000 + n * 100 + static_cast<std::size_t>(seed));
        const Disk& source = policy == Policy::ext4 ? ext4 : disk;
        source.build(plan.work, policy, moment, random);
        const std::string wrong = plan.check(plan.work, source.acknowledged());
        ++result.images;
        if (wrong.empty()) continue;
        result.failures.push_back("moment " + std::to_string(moment) + ", " + kPolicyNames[n] + ", seed " +
                                  std::to_string(seed) + ": " + wrong);
      }
    }
  }
  fs::remove_all(plan.work);
  return result;
}

}  // namespace test
