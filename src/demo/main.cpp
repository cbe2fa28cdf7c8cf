// tarvex-demo --folder DIR [--seed N]: plays the demonstration and names what it left.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "demo/play.h"

int main(int count, char** words) {
  std::filesystem::path folder;
  unsigned seed = 2026;
  for (int i = 1; i + 1 < count; i += 2) {
    if (std::string_view(words[i]) == "--folder") folder = words[i + 1];
    if (std::string_view(words[i]) == "--seed")
      seed = static_cast<unsigned>(std::strtoul(words[i + 1], nullptr, 10));
  }
  if (folder.empty()) {
    std::cerr << "usage: tarvex-demo --folder DIR [--seed N]\n";
    return 2;
  }
  const demo::Played played = demo::play(folder, TARVEX_DATA_DIR, seed);
  for (const std::string& fault : played.faults) std::cerr << fault << '\n';
  std::cout << played.invoices << " fatture e " << played.receipts
            << " corrispettivi registrati; stampe e archivi in " << folder.string() << '\n';
  for (const auto& path : played.printed) std::cout << "  " << path.filename().string() << '\n';
  return played.faults.empty() ? 0 : 1;
}
