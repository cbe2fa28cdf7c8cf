#include "session/installation.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "archives/catalogue.h"
#include "archives/fields.h"
#include "common/csv.h"
#include "common/text.h"
#include "session/text_file.h"
#include "store/files.h"
#include "store/locks.h"

namespace tarvex {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMarker = "installazione";
constexpr std::string_view kUnfinished = "nuovodataz";  // the family that becomes dataz
constexpr std::array<std::string_view, 3> kExtensions{".ISM", ".ISD", ".ISF"};
constexpr std::array<std::string_view, 6> kBeforeDataz{"civa", "cpag", "param", "modulo", "modrb", "gg"};

bool isArchiveFile(const fs::path& file) {
  const std::string extension = common::upper(file.extension().string()).substr(0, 4);
  return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end();
}

bool isOwn(const fs::path& file) {
  const std::string stem = file.stem().string();
  return stem == kUnfinished || stem == "dataz" ||
         std::find(kBeforeDataz.begin(), kBeforeDataz.end(), stem) != kBeforeDataz.end();
}

std::vector<fs::path> archiveFiles(const std::string& directory) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator it(directory, error), end; !error && it != end; it.increment(error))
    if (isArchiveFile(it->path())) files.push_back(it->path());
  return files;
}

bool exists(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

bool isWhole(const std::string& directory) {
  return std::all_of(kExtensions.begin(), kExtensions.end(), [&](std::string_view extension) {
    return exists((directory + "dataz").append(extension));
  });
}

// The work of one installation. Each step tells whether the next one may follow.
class Installer {
 public:
  explicit Installer(Session& session) : session_(session), directory_(session.DataDirectory) {}

  bool run() {
    removeRemains();
    if (!fillAll()) return false;
    if (!appendText(directory_ + "www", "")) return false;
    return finish();
  }

 private:
  using Key = std::function<std::string(const std::vector<std::string>& row, std::size_t number)>;

  void removeRemains() {
    std::error_code error;
    for (const fs::path& file : archiveFiles(directory_)) fs::remove(file, error);
  }

  // In a store of its own, so that every file is closed for good before the rename.
  bool fillAll() {
    store::RecordStore store(session_.storeOptions());
    const Key firstCell = [](const auto& row, std::size_t) { return row.front(); };
    const Key fourDigits = [](const auto&, std::size_t number) {
      return common::zeroFill(static_cast<long long>(number), 4);
    };
    return fill(store, "civa", "civa", firstCell) && fill(store, "cpag", "cpag", fourDigits) &&
           fillParameters(store) && make(store, "modulo", "modulo") && make(store, "modrb", "modrb") &&
           make(store, "gg", "gg") && fill(store, "dataz", kUnfinished, firstCell);
  }

  bool make(store::RecordStore& store, std::string_view prefix, std::string_view name) {
    const archives::Entry& entry = *archives::find(prefix);
    store.VmxCreate(stem(name), entry.keyLength, std::string(entry.format));
    store.CheckArchiveResult(store::Operation::create, entry.code, 1);
    return store.LastArchiveResult == store::kOk;
  }

  std::optional<common::CsvTable> table(std::string_view prefix) {
    const fs::path path = session_.options().offeredData / (std::string(prefix) + ".csv");
    std::optional<common::CsvTable> table = common::readCsv(path.string());
    if (!table) session_.log("Installazione non riuscita: manca " + path.filename().string());
    return table;
  }

  // One record for each row; columns that are no field of the record only serve the key.
  bool fill(store::RecordStore& store, std::string_view prefix, std::string_view name, const Key& keyOf) {
    const std::optional<common::CsvTable> rows = table(prefix);
    if (!rows || !make(store, prefix, name)) return false;
    const archives::Entry& entry = *archives::find(prefix);
    return writeTo(store, name, entry.code, [&](const auto& put) {
      for (std::size_t i = 0; i < rows->rows.size(); ++i) {
        std::vector<archives::NamedField> fields = archives::fieldsOf(entry, {});
        for (std::size_t column = 0; column < rows->header.size(); ++column)
          archives::setField(fields, rows->header[column], archives::Scalar(rows->rows[i][column]));
        if (!put(keyOf(rows->rows[i], i + 1), archives::packedOf(entry, fields))) return false;
      }
      return true;
    });
  }

  // One record, a row for each field that is not empty.
  bool fillParameters(store::RecordStore& store) {
    const std::optional<common::CsvTable> rows = table("param");
    if (!rows || !make(store, "param", "param")) return false;
    const archives::Entry& entry = *archives::find("param");
    std::vector<archives::NamedField> fields = archives::fieldsOf(entry, {});
    for (const auto& row : rows->rows) archives::setField(fields, row.front(), archives::Scalar(row.back()));
    return writeTo(store, "param", entry.code,
                   [&](const auto& put) { return put("1", archives::packedOf(entry, fields)); });
  }

  template <class Write>
  bool writeTo(store::RecordStore& store, std::string_view name, int code, const Write& write) {
    store::Handle handle = 0;
    store.VmxOpen(stem(name), handle);
    store.CheckArchiveResult(store::Operation::open, code, 2);
    if (store.LastArchiveResult != store::kOk) return false;
    const bool written = write([&](std::string_view key, std::string_view record) {
      store.VmxPut(handle, key, record, store::Put::add);
      store.CheckArchiveResult(store::Operation::write, code, 3);
      return store.LastArchiveResult == store::kOk;
    });
    store.VmxClose(handle);
    store.CheckArchiveResult(store::Operation::close, code, 4);
    return written && store.LastArchiveResult == store::kOk;
  }

  bool finish() {
    std::error_code error;
    for (const std::string_view extension : kExtensions) {
      fs::rename(stem(kUnfinished).append(extension), stem("dataz").append(extension), error);
      if (error) return false;
    }
    const int directory = ::open(directory_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0) return false;
    const bool durable = ::fsync(directory) == 0;
    ::close(directory);
    return durable;
  }

  std::string stem(std::string_view name) const { return directory_ + std::string(name); }

  Session& session_;
  const std::string directory_;
};

// Two starts at once on an empty directory: the second waits until the first is done or gone.
bool takeMarker(store::LockFile& marker) {
  constexpr int kTries = 3000;
  for (int i = 0; i < kTries; ++i) {
    const store::Code result = marker.tryExclusive(store::kPresenceByte);
    if (result != store::kNotFound) return result == store::kOk;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

// Whether the directory is empty of archives, or, under the marker, holds none but those of an installation
// that was never used. The marker is looked for last: whoever has just begun made it before the first
// archive.
bool mayInstall(const std::string& directory, const std::string& marker) {
  const std::vector<fs::path> files = archiveFiles(directory);
  return exists(marker) ? std::all_of(files.begin(), files.end(), isOwn) : files.empty();
}

}  // namespace

bool isUntouched(const std::string& directory) {
  return archiveFiles(directory).empty() && !exists(directory + "/" + std::string(kMarker));
}

bool ensureInstallation(Session& session) {
  const std::string& directory = session.DataDirectory;
  const std::string markerPath = directory + std::string(kMarker);
  if (!exists(markerPath) && isWhole(directory)) return true;
  store::makeDirectory(directory,
                       store::kOwn);  // of a single station; where that fails, all that follows does
  std::error_code error;
  if (!mayInstall(directory, markerPath)) return true;
  if (!appendText(markerPath, "")) return false;
  store::LockFile marker;
  if (marker.open(markerPath) != store::kOk || !takeMarker(marker)) return isWhole(directory);
  const bool whole = isWhole(directory) || Installer(session).run();
  if (whole) fs::remove(markerPath, error);
  return whole;
}

}  // namespace tarvex
