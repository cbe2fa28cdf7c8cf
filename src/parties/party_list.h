// The selective list of customers, suppliers or agents: its columns, its filters, the walk over the chart,
// the pages.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "parties/party.h"
#include "session/session.h"
#include "ui/report.h"
#include "ui/sheet.h"

namespace tarvex {

struct ListedParty {
  const rec::pc& party;
  const std::string &agente1, &agente2;  // names
};

// A column has a text or a number.
struct PartyColumn {
  std::string_view tick;  // the caption of its check box; empty: it goes with the column before
  std::string_view head;
  int width;  // on paper, in characters
  std::string (*text)(const ListedParty& row);
  double (*number)(const ListedParty& row) = nullptr;
  int yearsBack = -1;  // the year, so many before the session's, stands behind the head; -1: none does
};

std::span<const PartyColumn> columnsOf(const PartyKind& kind);
std::string headOf(const PartyColumn& column, const Session& session);

// A filter that is not set lets everyone pass.
struct TextFilter {
  std::string caption, value;
  std::string rec::pc::*field;
};
struct RangeFilter {
  std::string caption;
  std::optional<double> from, to;  // both included
  double rec::pc::*field;
};

struct PartyFilters {
  std::vector<TextFilter> texts;
  std::vector<RangeFilter> ranges;
  std::string lastInvoiceFrom, lastInvoiceTo;  // yyyymmdd; who was never invoiced passes neither
  std::string agent, agentName;                // the code of either agent
  std::optional<int> priceList;

  bool pass(const rec::pc& party) const;
  // A line for each filter set, its caption padded to 20 characters.
  std::vector<std::string> told() const;
};

// Calls `each` on the parties of the kind that pass, by name. False after a failure that has been reported.
bool eachParty(Session& session, const PartyKind& kind, const PartyFilters& filters,
               const std::function<void(const ListedParty& row)>& each);

// The names of the agents by their code. A failure is reported and ends them.
std::map<std::string, std::string> agentNames(Session& session);

// The print. Columns that do not fit into the width of the page go on in further lines of the same row.
// Nothing after a failure that has been reported.
std::shared_ptr<const ui::Report> listReport(Session& session, const PartyKind& kind,
                                             const std::vector<const PartyColumn*>& columns,
                                             const PartyFilters& filters, ui::Setup setup);

// The same as cells, the heads in the first row without the blanks that pad them. Nothing after a failure
// that has been reported.
std::optional<ui::Sheet> listSheet(Session& session, const PartyKind& kind,
                                   const std::vector<const PartyColumn*>& columns,
                                   const PartyFilters& filters);

}  // namespace tarvex
