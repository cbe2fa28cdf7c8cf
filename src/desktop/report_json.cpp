#include "desktop/report_json.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace desktop {
namespace {

using Json = nlohmann::json;

void addPage(ui::Report& report, const Json& page) {
  for (const Json& line : page.at("lines")) {
    report.setSize(line.at("size").get<double>());
    report.setBold(line.at("bold").get<bool>());
    report.line(line.at("text").get<std::string>());
  }
  for (const Json& picture : page.at("pictures"))
    report.picture({picture.at("path").get<std::string>(), picture.at("left").get<double>(),
                    picture.at("top").get<double>(), picture.at("width").get<double>(),
                    picture.at("height").get<double>()});
}

}  // namespace

std::optional<ui::Report> parseReport(const std::string& text) {
  const Json json = Json::parse(text, nullptr, false);
  if (!json.is_object()) return {};
  try {
    ui::Report report(json.at("title").get<std::string>(), {.font = json.at("font").get<std::string>(),
                                                            .size = json.at("size").get<double>(),
                                                            .pageLines = json.at("pageLines").get<int>(),
                                                            .landscape = json.at("landscape").get<bool>()});
    bool first = true;
    for (const Json& page : json.at("pages")) {
      if (!std::exchange(first, false)) report.newPage();
      addPage(report, page);
    }
    return report;
  } catch (const Json::exception&) {
    return {};  // something is missing or of another kind
  }
}

}  // namespace desktop
