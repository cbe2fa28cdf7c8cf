// Pairs of a control and the field of the parameters that it shows, so that a form of a hundred controls
// reads as a list of them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "archives/param.h"
#include "ui/control.h"

namespace tarvex {

// Filled once by the form's pages; the controls must outlive it.
class Bindings {
 public:
  using Text = std::string rec::param::*;
  using Small = std::int16_t rec::param::*;
  using Number = double rec::param::*;

  void bind(ui::Check& check, Small field);  // 1 for on
  void bind(ui::Check& check, Number field);
  void bind(ui::Field& field, Text text);
  void bind(ui::Field& field, Number number);
  void bind(ui::Spin& spin, Small field);
  void bind(ui::Choice& combo, Text text);  // the item's own text; one that is not listed is added
  void bind(ui::Choice& choice, Small field, int first);  // the index counted from `first`
  void bind(ui::Choice& choice, Number field, int first);
  void bind(std::function<void(const rec::param&)> show, std::function<void(rec::param&)> take);

  void show(const rec::param& parameters) const;
  void take(rec::param& parameters) const;  // fields that no control is bound to stay as they are

 private:
  struct Pair {
    std::function<void(const rec::param&)> show;
    std::function<void(rec::param&)> take;
  };
  std::vector<Pair> pairs_;
};

}  // namespace tarvex
