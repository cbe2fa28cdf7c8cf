#include "driver/control_json.h"

#include <string>

#include "ui/tree.h"

#include "ui/chart.h"

namespace driver {
namespace {

using Json = nlohmann::ordered_json;

std::string textOf(const ui::Control& control) {
  if (auto* field = dynamic_cast<const ui::Field*>(&control)) return field->shown();
  if (auto* memo = dynamic_cast<const ui::Memo*>(&control)) return memo->plainText();
  if (auto* label = dynamic_cast<const ui::Label*>(&control)) return label->text();
  if (auto* choice = dynamic_cast<const ui::Choice*>(&control)) return choice->text();
  return {};
}

void addList(Json& json, const ui::List& list) {
  Json columns = Json::array(), rows = Json::array();
  for (const auto& column : list.columns()) columns.push_back(column.title);
  list.reaches(-1);
  const std::size_t count = list.rows().count();
  for (std::size_t row = 0; row < count; ++row) {
    Json cells = Json::array();
    const auto* tree = dynamic_cast<const ui::Tree*>(&list);  // a cell for each level above
    for (int level = tree ? tree->depth(static_cast<int>(row)) : 0; level > 0; --level) cells.push_back("");
    for (std::size_t column = 0; column < list.columns().size(); ++column)
      cells.push_back(list.rows().cell(row, column));
    rows.push_back(std::move(cells));
  }
  json["columns"] = std::move(columns);
  json["rows"] = std::move(rows);
  if (list.takesSeveral())
    json["selected"] = list.selectedRows();
  else
    json["selected"] = list.selected();
}

void addChart(Json& json, const ui::Chart& chart) {
  json["labels"] = chart.labels();
  json["series"] = Json::array();
  for (const ui::Series& series : chart.series())
    json["series"].push_back({{"name", series.name}, {"values", series.values}});
}

}  // namespace

Json toJson(const ui::Control& control) {
  Json json;
  json["name"] = control.name();
  json["caption"] = control.caption();
  json["kind"] = control.kind();
  json["text"] = textOf(control);
  json["enabled"] = control.enabled();
  json["visible"] = control.visible();
  if (auto* check = dynamic_cast<const ui::Check*>(&control)) {
    json["checked"] = check->on();
  } else if (auto* choice = dynamic_cast<const ui::Choice*>(&control)) {
    json["items"] = choice->items();
    json["selected"] = choice->index();
  } else if (auto* list = dynamic_cast<const ui::List*>(&control)) {
    addList(json, *list);
  } else if (auto* chart = dynamic_cast<const ui::Chart*>(&control)) {
    addChart(json, *chart);
  } else if (auto* spin = dynamic_cast<const ui::Spin*>(&control)) {
    json["value"] = spin->value();
  } else if (auto* tabs = dynamic_cast<const ui::Tabs*>(&control)) {
    json["items"] = tabs->pages();
    json["selected"] = tabs->current();
  }
  return json;
}

Json controlsOf(const ui::Form& form) {
  Json controls = Json::array();
  for (const ui::Control* control : form.controls())
    if (!control->kind().empty()) controls.push_back(toJson(*control));
  return controls;
}

}  // namespace driver
