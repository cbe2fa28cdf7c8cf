// The pages of PARGES but for the network's: their controls, each bound to its field of the parameters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "parameters/bindings.h"
#include "session/session.h"
#include "ui/form.h"

namespace tarvex::parges {

// A field for a path with the button that looks for it.
struct PathField {
  PathField(ui::Form& form, std::string_view name, std::string_view caption, std::string_view filter);
  ui::Field path;
  ui::Button browse;
};

struct LookPage {
  LookPage(ui::Form& form, Bindings& bindings);
  ui::Layout layout() const;

  ui::Choice colour;
  ui::Check ground, groundOfBar;
  ui::Choice preset;
  PathField picture;
  ui::Check toolBar;
  ui::Choice toolStyle;
  ui::Check sideBar, statusBar, agenda;
};

struct PrintPage {
  PrintPage(ui::Form& form, Bindings& bindings);
  ui::Layout layout() const;

  ui::Choice font;
  ui::Spin size, lines;
  ui::Check setup;
  ui::Choice zoom;
  ui::Spin skipped;
  ui::Memo reminder;
};

struct DocumentsPage {
  DocumentsPage(ui::Form& form, Session& session, Bindings& bindings);
  ui::Layout layout() const;

  ui::Check preload, negativeDueDates, returns, separateVat;
  ui::Field serviceVoice;  // by description; the parameter keeps its key
  ui::Check imagesOfSales, imagesOfPurchases, imagesAsk;
  ui::Choice imageFormat;
  PathField images;

 private:
  void bindServiceVoice(Session& session, Bindings& bindings);
  void bindImages(Bindings& bindings);
};

struct VatPage {
  VatPage(ui::Form& form, Session& session, Bindings& bindings);
  ui::Layout layout() const;

  ui::Choice transport, packing, various, stamp;
  ui::Field least;
  ui::Check weighted;
  ui::Grid bands;
  ui::GridLabels limit;
  ui::GridColumn threshold, duty;
};

struct WarehousePage {
  WarehousePage(ui::Form& form, Bindings& bindings);
  ui::Layout layout() const;

  ui::Check easyBarcodes, quantityOne, warnMinimum, warnStock, warnAvailable, alwaysCard;
  ui::Spin decimalsOfParts, decimalsOfPrices;
  ui::Label nextStart;
};

struct SearchPage {
  SearchPage(ui::Form& form, Bindings& bindings);
  ui::Layout layout() const;

  ui::Spin most;
  ui::Check previous, completion;
  ui::Spin backupDays;
  ui::Check excel;
  PathField excelPath;
  ui::Check internet;
};

struct TelephonePage {
  TelephonePage(ui::Form& form, Bindings& bindings);
  ui::Layout layout() const;

  ui::Choice dialling, port;
  ui::Field line, prefix;
  ui::Spin digits;
  ui::Field first;
};

// Three lists of fifty texts, shown ten at a time.
struct ListsPage {
  ListsPage(ui::Form& form, Bindings& bindings);
  ui::Layout layout() const;

  ui::Grid parcels;
  ui::GridColumn look;
  ui::Grid addresses;
  ui::GridColumn name, address;

 private:
  using Texts = std::vector<std::string>;  // by line, from 1
  void bindColumn(ui::GridColumn& column, Texts& texts);
  void showPage(const ui::GridColumn& column, const Texts& texts);
  Texts looks_, names_, addressTexts_;
};

}  // namespace tarvex::parges
