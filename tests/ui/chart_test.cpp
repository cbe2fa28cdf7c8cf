#include "ui/chart.h"

#include <doctest/doctest.h>

#include <cmath>
#include <limits>
#include <random>

#include "ui/fake_desk.h"

using ui::Axis, ui::axisOf;

namespace {

bool isOneTwoFive(double step) {
  const double lead = step / std::pow(10, std::floor(std::log10(step) + 1e-9));
  return std::abs(lead - 1) < 1e-6 || std::abs(lead - 2) < 1e-6 || std::abs(lead - 5) < 1e-6;
}

}  // namespace

TEST_CASE("an axis holds every value and 0, by round steps, neither too few nor too many") {
  std::mt19937 draw(1);
  for (int round = 0; round < 2000; ++round) {
    ui::Series series;
    const double size = std::pow(10, static_cast<int>(draw() % 18) - 4);
    for (int i = 0; i < 12; ++i)
      series.values.push_back((static_cast<double>(draw() % 20001) - (round % 2 ? 10000 : 0)) / 10000 * size);
    const Axis axis = axisOf({series});
    CAPTURE(size);
    const double slack = axis.step * 1e-6;
    for (const double value : series.values) {
      CHECK(axis.low <= value + slack);
      CHECK(value <= axis.high + slack);
    }
    CHECK(axis.low <= 0);
    CHECK(axis.high >= 0);
    CHECK(isOneTwoFive(axis.step));
    const double steps = (axis.high - axis.low) / axis.step;
    CHECK(steps > 3.9);
    CHECK(steps < 12.1);
    CHECK(std::abs(steps - std::round(steps)) < 1e-6);
  }
}

TEST_CASE("an axis of nothing, and of what is no number, can be drawn") {
  constexpr double huge = std::numeric_limits<double>::max(), inf = std::numeric_limits<double>::infinity();
  for (const std::vector<double>& values :
       {std::vector<double>{}, {0, 0}, {std::nan("")}, {inf, -inf}, {huge, -huge}, {5e-324}}) {
    const Axis axis = axisOf({{"a", values}});
    CHECK(std::isfinite(axis.low));
    CHECK(axis.high > axis.low);
    CHECK(axis.step > 0);
  }
  CHECK(axisOf({}).high == 1);
}

TEST_CASE("a chart has a value of each series for each label") {
  FakeDesk desk;
  struct Form : ui::Form {
    explicit Form(ui::Desk& on) : ui::Form(on, "prova", "Prova") {}
    ui::Chart chart{*this, "grafico", "Grafico"};
  } form(desk);
  form.chart.show({"a", "b", "c"}, {{"2003", {1}}, {"2002", {1, 2, 3, 4}}});
  CHECK(form.chart.series()[0].values == std::vector<double>{1, 0, 0});
  CHECK(form.chart.series()[1].values == std::vector<double>{1, 2, 3});
  form.chart.clear();
  CHECK(form.chart.labels().empty());
  CHECK(form.chart.series().empty());
}
