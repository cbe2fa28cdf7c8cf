// invoice_station DIRECTORY FIRST COUNT [ACKNOWLEDGED]: a station that registers invoices, one after the
// other, and notes the number of each one in a file once the form says that it stands.
// invoice_station DIRECTORY revise NUMMOV: one that revises an entry.
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "app/invoices.h"

namespace {

int revise(test::Station& station, const char* nummov) {
  station.session.EntryToRevise = nummov;
  station.session.open("mcfv2");
  Hands hands(*station.desk.forms().back());
  hands.set("Descrizione", "rivista");
  hands.press("registra");
  station.frame.end();
  return station.desk.boxes.empty() ? 0 : 4;
}

}  // namespace

int main(int count, char** words) {
  if (count < 4) return 2;
  test::Station station(words[1]);
  if (!station.start(test::choose(test::kCompany, test::kYear))) return 3;
  if (std::string_view(words[2]) == "revise") return revise(station, words[3]);
  station.session.open("mcfv");
  ui::Form& mcfv = *station.desk.forms().back();
  const int acknowledged = count > 4 ? open(words[4], O_WRONLY | O_APPEND | O_CREAT, 0600) : -1;
  const int first = std::atoi(words[2]), last = first + std::atoi(words[3]);
  for (int number = first; number < last; ++number) {
    if (!test::postInvoice(station, mcfv, number)) return 4;
    const std::string line = std::to_string(number) + "\n";
    if (acknowledged >= 0 && write(acknowledged, line.data(), line.size()) < 0) return 5;
  }
  mcfv.close();
  station.frame.end();
  return 0;
}
