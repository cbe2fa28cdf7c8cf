// tarvex-demo --folder DIR [--seed N]: plays the demonstration, its archives in DIR/archivi, and names what
// it left. tarvex-demo --data DIR [--seed N]: into the archives of DIR, without prints, telling its steps on
// standard output ("12 160" lines).
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "common/places.h"
#include "demo/play.h"

namespace {

int finish(const demo::Played& played) {
  for (const std::string& fault : played.faults) std::cerr << fault << '\n';
  return played.faults.empty() ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
  std::filesystem::path folder;
  demo::Stage stage;
  for (int i = 1; i + 1 < count; i += 2) {
    if (std::string_view(words[i]) == "--folder") folder = words[i + 1];
    if (std::string_view(words[i]) == "--data") stage.archives = words[i + 1];
    if (std::string_view(words[i]) == "--seed")
      stage.seed = static_cast<unsigned>(std::strtoul(words[i + 1], nullptr, 10));
  }
  if (folder.empty() == stage.archives.empty()) {
    std::cerr << "usage: tarvex-demo --folder DIR | --data DIR [--seed N]\n";
    return 2;
  }
  stage.offered = common::offeredData(TARVEX_DATA_DIR);
  stage.pdfProgram = common::programDirectory() / "tarvex-pdf";
  if (folder.empty()) {
    stage.onStep = [](std::size_t done, std::size_t all) { std::cout << done << ' ' << all << std::endl; };
    return finish(demo::play(stage));
  }
  stage.archives = folder / "archivi";
  stage.prints = folder;
  const demo::Played played = demo::play(stage);
  std::cout << played.invoices << " fatture e " << played.receipts
            << " corrispettivi registrati; stampe e archivi in " << folder.string() << '\n';
  for (const auto& path : played.printed) std::cout << "  " << path.filename().string() << '\n';
  return finish(played);
}
