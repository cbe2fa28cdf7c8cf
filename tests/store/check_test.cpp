#include "store/check.h"

#include <doctest/doctest.h>

#include <vector>

using namespace store;

TEST_CASE("a failure is told in four lines and one line of the log") {
  const ArchiveFailure failure = describeFailure(kNotFound, Operation::read, 4, 120);
  CHECK(failure.message == "Errore:  1\rOperazione: lettura dati\rArchivio: progressivi\rPosizione:  120");
  CHECK(failure.logLine == "Errore:  1 Operazione: lettura dati Archivio: progressivi Posizione:  120");
  CHECK(failure.title == "Errore durante operazione sugli archivi");
  CHECK(failure.cause.empty());
}

TEST_CASE("five codes have words of their own, and only one bears the product's name") {
  struct Row {
    Code code;
    std::string_view cause, title;
  };
  const std::vector<Row> rows{{kDiskFull, "DISCO PIENO", "Errore"},
                              {kNoMemory, "OUT OF MEMORY", "Tarvex"},
                              {kSystem, "ERRORE DOS", "Errore"},
                              {kDisk, "ERRORE DISCO", "Errore"},
                              {kTooManyFiles, "TROPPI FILE APERTI", "Errore"},
                              {15, "", ""}};
  for (const Row& row : rows) {
    const ArchiveFailure failure = describeFailure(row.code, Operation::write, 36, 9800);
    CAPTURE(row.code);
    CHECK(failure.cause == row.cause);
    CHECK(failure.causeTitle == row.title);
    CHECK(failure.message.find("\rArchivio: posta\r") != std::string::npos);
  }
}

TEST_CASE("an archive code outside the table gives an empty text") {
  for (const int archive : {-1, 0, 37})
    CHECK(describeFailure(3, Operation::kill, archive, -1).logLine ==
          "Errore:  3 Operazione: cancellazione archivi Archivio:  Posizione: -1");
}
