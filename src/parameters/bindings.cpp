#include "parameters/bindings.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tarvex {
namespace {

// -1 where the stored number is none of the items'.
template <class T>
int indexOf(T stored, int first, const ui::Choice& choice) {
  const int index = static_cast<int>(stored) - first;
  return index < 0 || index >= static_cast<int>(choice.items().size()) ? -1 : index;
}

}  // namespace

void Bindings::bind(std::function<void(const rec::param&)> show, std::function<void(rec::param&)> take) {
  pairs_.push_back({std::move(show), std::move(take)});
}

void Bindings::bind(ui::Check& check, Small field) {
  bind([&check, field](const rec::param& from) { check.set(from.*field == 1); },
       [&check, field](rec::param& to) { to.*field = check.on() ? 1 : 0; });
}

void Bindings::bind(ui::Check& check, Number field) {
  bind([&check, field](const rec::param& from) { check.set(from.*field == 1); },
       [&check, field](rec::param& to) { to.*field = check.on() ? 1 : 0; });
}

void Bindings::bind(ui::Field& field, Text text) {
  bind([&field, text](const rec::param& from) { field.setText(from.*text); },
       [&field, text](rec::param& to) { to.*text = field.text(); });
}

void Bindings::bind(ui::Field& field, Number number) {
  bind([&field, number](const rec::param& from) { field.setNumber(from.*number); },
       [&field, number](rec::param& to) { to.*number = field.number(); });
}

// A value outside of the control's range stays in the record while the control is left alone.
void Bindings::bind(ui::Spin& spin, Small field) {
  const auto shown = std::make_shared<int>();
  bind(
      [&spin, field, shown](const rec::param& from) {
        spin.setValue(from.*field);
        *shown = spin.value();
      },
      [&spin, field, shown](rec::param& to) {
        if (spin.value() != *shown) to.*field = static_cast<std::int16_t>(spin.value());
      });
}

void Bindings::bind(ui::Choice& combo, Text text) {
  bind(
      [&combo, text](const rec::param& from) {
        if (combo.selectText(from.*text) || (from.*text).empty()) return;
        combo.addItem(from.*text);
        combo.select(static_cast<int>(combo.items().size()) - 1);
      },
      [&combo, text](rec::param& to) { to.*text = combo.text(); });
}

void Bindings::bind(ui::Choice& choice, Small field, int first) {
  bind(
      [&choice, field, first](const rec::param& from) { choice.select(indexOf(from.*field, first, choice)); },
      [&choice, field, first](rec::param& to) {
        if (choice.index() >= 0) to.*field = static_cast<std::int16_t>(choice.index() + first);
      });
}

void Bindings::bind(ui::Choice& choice, Number field, int first) {
  bind(
      [&choice, field, first](const rec::param& from) { choice.select(indexOf(from.*field, first, choice)); },
      [&choice, field, first](rec::param& to) {
        if (choice.index() >= 0) to.*field = choice.index() + first;
      });
}

void Bindings::show(const rec::param& parameters) const {
  for (const Pair& pair : pairs_) pair.show(parameters);
}

void Bindings::take(rec::param& parameters) const {
  for (const Pair& pair : pairs_) pair.take(parameters);
}

}  // namespace tarvex
