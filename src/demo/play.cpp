#include "demo/play.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "app/units.h"
#include "common/text.h"
#include "demo/prints.h"
#include "demo/script.h"
#include "driver/driver.h"
#include "session/text_file.h"

namespace demo {
namespace {

using nlohmann::json;

// A box that refuses has no place in a play: a code without tax tells its description, the copy of the
// company asks, and that is all.
bool expected(const json& box) { return box["title"] == "CODICE IVA" || box["answer"] == "yes"; }

void judge(const json& answer, std::string_view command, Played& played) {
  const auto fault = [&](const std::string& why) {
    played.faults.push_back(std::string(command) + ": " + why);
  };
  if (!answer["ok"]) fault(answer["error"]);
  for (const json& box : answer["boxes"])
    if (!expected(box)) fault(box["text"]);
  if (answer.contains("violations"))
    for (const json& violation : answer["violations"]) fault(violation.dump());
}

// "Registro iva vendite" to "registro-iva-vendite-1.txt", numbered by the prints of that title.
std::string fileNameOf(const std::string& title, const Played& played) {
  std::string name = common::lower(title) + "-";
  std::replace(name.begin(), name.end(), ' ', '-');
  const auto before =
      std::count_if(played.printed.begin(), played.printed.end(), [&](const std::filesystem::path& path) {
        return path.extension() == ".txt" && path.filename().string().starts_with(name);
      });
  return name + std::to_string(before + 1) + ".txt";
}

void keepReport(const json& answer, const std::filesystem::path& folder, Played& played) {
  const std::filesystem::path path = folder / fileNameOf(answer["title"], played);
  std::string text;
  for (const json& page : answer["pages"]) {
    for (const json& line : page) text += line.get<std::string>() + '\n';
    text += '\f';
  }
  std::filesystem::remove(path);
  if (!tarvex::appendText(path.string(), text)) played.faults.push_back(path.string() + " cannot be written");
  const std::filesystem::path paper = std::filesystem::path(path).replace_extension(".pdf");
  std::error_code error;  // a PDF that was not written is a fault of its own command
  std::filesystem::rename(folder / pdfName(played.printed.size() / 2 + 1), paper, error);
  played.printed.push_back(path);
  played.printed.push_back(paper);
}

// What the driver answers; it flushes after each answer, which is a step done.
class Answers : public std::stringbuf {
 public:
  explicit Answers(std::function<void()> onAnswer) : onAnswer_(std::move(onAnswer)) {}

 private:
  int sync() override {
    onAnswer_();
    return 0;
  }
  std::function<void()> onAnswer_;
};

std::string perform(const Stage& stage, const Company& company, const std::string& script) {
  const auto all = static_cast<std::size_t>(std::count(script.begin(), script.end(), '\n'));
  std::size_t done = 0;
  Answers answers([&] {
    ++done;
    if (stage.onStep) stage.onStep(done, all);
  });
  std::istringstream in(script);
  std::ostream out(&answers);
  driver::DriverOptions options;
  options.session = {stage.archives, stage.archives, stage.offered,
                     common::Clock("31/03/" + company.year, "12:00")};
  options.units = tarvex::units();
  options.pdfProgram = stage.pdfProgram;
  driver::Driver(options, in, out).run();
  return answers.str();
}

}  // namespace

Played play(const Stage& stage) {
  const Company company = drawCompany(stage.seed);
  std::filesystem::create_directories(stage.archives);
  const std::string script = scriptOf(company, stage.prints);
  std::istringstream answers(perform(stage, company, script)), commands(script);

  Played played;
  played.invoices = static_cast<int>(company.invoices.size() + company.purchases.size());
  played.receipts = static_cast<int>(company.receipts.size());
  for (std::string command, line; std::getline(commands, command) && std::getline(answers, line);) {
    const json answer = json::parse(line);
    judge(answer, command, played);
    if (answer.contains("pages")) keepReport(answer, stage.prints, played);
  }
  return played;
}

}  // namespace demo
