// The embedded engine: a SQLite database for each archive.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "store/embedded/family.h"
#include "store/embedded/journal.h"
#include "store/embedded/sql.h"
#include "store/engine.h"
#include "store/files.h"
#include "store/locks.h"

namespace store::embedded {

// On the descriptor. MAKE is the mutex of whoever makes the archive, changes its journal or mends it; USE is
// shared by all that have the archive open, so that the journal is changed with nobody there.
inline constexpr std::uint64_t kMakeByte = (1ULL << 62) + 3, kUseByte = (1ULL << 62) + 4;

struct BusyWait {
  std::function<void()> onWait;
  std::int64_t waited = 0, nextCall = 0;

  bool once(int attempt);
};

std::string newUuid();
Code execute(sqlite3* connection, const std::string& sql);
// An empty file of its own mode: SQLite would make it readable for all.
Code makeEmpty(const std::string& path, mode_t permissions);
Code writeWhole(int descriptor, const std::string& text);  // at the beginning, durable

class EmbeddedEngine final : public Engine {
 public:
  EmbeddedEngine(std::function<void()> onWait, bool share) : share_(share) {
    wait_.onWait = std::move(onWait);
  }

  Code create(const std::string& stem, int keyLength, const std::string& format) override;
  Code copy(const std::string& from, const std::string& to) override;
  Code kill(const std::string& stem) override { return Family(stem).remove(); }
  bool exists(const std::string& stem) const override { return Family(stem).isWhole(); }
  bool isOpenElsewhere(const std::string& stem) override;
  Code open(const std::string& stem, std::unique_ptr<Table>& table) override;

  Code checkJournal(const std::string& stem) override;
  Code validate(const std::string& stem, const std::optional<Shape>& shape,
                const Progress& progress) override;
  Code rebuild(const std::string& stem, const Progress& progress) override;
  Code repair(const std::string& stem, const std::optional<Shape>& shape, Salvage& salvage,
              const Progress& progress) override;

 private:
  Code connect(const Family& family, Journal journal, Connection& connection);
  template <class Fill>
  Code make(const Family& family, const Descriptor& descriptor, const Fill& fill);
  Code fill(const Family& family, const Descriptor& descriptor);
  Code fillFrom(sqlite3* source, Journal journal, const Family& family);
  Code lockMaking(LockFile& descriptor);
  Code enter(const Family& family, LockFile& use, Journal& journal);
  Code convert(const Family& family, Journal from, Journal to);
  Code enterAlone(const Family& family, LockFile& use);
  mode_t permissions() const { return (share_ ? kShared : kOwn).file; }
  Journal journalFor(const std::string& path) const {
    return share_ || isOnNetwork(path) ? Journal::rollback : Journal::ahead;
  }

  bool share_;
  BusyWait wait_;
};

}  // namespace store::embedded
