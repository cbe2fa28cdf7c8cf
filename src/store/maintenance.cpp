// Maintenance of a closed archive, with what groups have left in the log.
#include "store/station.h"

namespace store {

std::optional<Shape> RecordStore::Impl::shapeOf(const std::string& stem) const {
  return options.shapeOf ? options.shapeOf(nameOf(stem)) : std::nullopt;
}

// Gives back this station's own connection, which its closed handles have left.
Code RecordStore::Impl::letGo(const std::string& stem, Member*& member) {
  member = &memberOf(stem);
  if (member->handles || member->overlay || inGroup(*member)) return kSystem;
  member->table.reset();
  return kOk;
}

Code RecordStore::Impl::validate(const std::string& stem, const Progress& progress) {
  Member* member = nullptr;
  if (const Code code = letGo(stem, member)) return code;
  if (const Code code = engine->checkJournal(stem)) return code;
  settle(member->company);  // another archive may be the one that keeps it from ending
  member->table.reset();
  return engine->validate(stem, shapeOf(stem), progress);
}

Code RecordStore::Impl::rebuild(const std::string& stem, const Progress& progress) {
  Member* member = nullptr;
  if (const Code code = letGo(stem, member)) return code;
  settle(member->company);
  member->table.reset();
  return engine->rebuild(stem, progress);
}

Code RecordStore::Impl::repair(const std::string& stem, std::string& report, const Progress& progress) {
  Member* member = nullptr;
  if (const Code code = letGo(stem, member)) return code;
  Salvage salvage;
  if (const Code code = engine->repair(stem, shapeOf(stem), salvage, progress)) return code;
  if (!member->locks.any()) member->locks.close();  // the descriptor may be another file now
  report = "Grp=" + std::to_string(salvage.kept) + '\n';
  for (const std::string& key : salvage.lost) report += "Perso=" + key + '\n';
  // A group that the damage has taken out of the archive may stand in the log: only now can it be applied.
  Company& company = member->company;
  if (const Code code = enter(company)) return code;
  if (const Code code = lockLog(company)) return code;
  const Code code = replay(company, true);
  company.log.unlockLog();
  return code;
}

}  // namespace store
