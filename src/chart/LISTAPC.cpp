// Struttura piano dei conti: the chart proper as a tree.
#include <map>

#include "chart/forms.h"
#include "ui/form.h"
#include "ui/tree.h"

namespace tarvex {
namespace {

using namespace ui;

class Listapc : public Form {
 public:
  explicit Listapc(Session& session);
  Layout layout() const override { return column({albero, buttons({espandi, comprimi, chiudi})}); }
  void load() override { fill(); }

 private:
  struct Branch {
    std::string name;
    std::map<std::string, Branch> children;  // by their code of fifteen characters
  };
  void fill();
  void read(std::string_view tipo, std::map<std::string, Branch> (&natures)[2]);
  void add(std::vector<TreeNode>& nodes, const std::map<std::string, Branch>& branches, int parent);

  Session& session_;
  Tree albero{*this, "albero", "Struttura", 60};
  Button espandi{*this, "espandi", "&Espandi"};
  Button comprimi{*this, "comprimi", "Co&mprimi"};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Listapc::Listapc(Session& session)
    : Form(session.desk(), "LISTAPC", "Struttura piano dei conti"), session_(session) {
  albero.setHeight(18);
  espandi.onPress = [this] { albero.openAll(true); };
  comprimi.onPress = [this] { albero.openAll(false); };
  chiudi.onPress = [this] { close(); };
}

// Three passes: each level finds its parent, which the pass before has brought.
void Listapc::fill() {
  std::map<std::string, Branch> natures[2];
  for (const std::string_view tipo : {"m", "cc", "s"}) read(tipo, natures);
  std::vector<TreeNode> nodes{{"Piano dei conti"}, {"Mastri patrimoniali", 0}, {"Mastri economici", 0}};
  std::vector<TreeNode> all{nodes[0]};
  for (int nature = 0; nature < 2; ++nature) {
    const int at = static_cast<int>(all.size());
    all.push_back(nodes[static_cast<std::size_t>(nature) + 1]);
    add(all, natures[nature], at);
  }
  albero.setNodes(std::move(all));
}

void Listapc::read(std::string_view tipo, std::map<std::string, Branch> (&natures)[2]) {
  auto& pc = session_.pc;
  store::Code result = pc.search(7, tipo);
  for (; result == store::kOk && pc.B.tipo == tipo; result = pc.next(7)) {
    auto* level = &natures[pc.B.natura == "p" ? 0 : 1];
    const std::string mastro = pc.B.codice.substr(0, 5) + "0000000000",
                      conto = pc.B.codice.substr(0, 10) + "00000";
    if (tipo != "m") level = &(*level)[mastro].children;
    if (tipo == "s") level = &(*level)[conto].children;
    (*level)[pc.B.codice].name = pc.B.ragsoc;
  }
  if (result != store::kOk && result != store::kNotFound)
    session_.CheckArchiveResult(store::Operation::read, pc.code, 1140);
}

void Listapc::add(std::vector<TreeNode>& nodes, const std::map<std::string, Branch>& branches, int parent) {
  for (const auto& [code, branch] : branches) {
    const int at = static_cast<int>(nodes.size());
    nodes.push_back({branch.name.empty() ? "(" + code + ")" : branch.name, parent});
    add(nodes, branch.children, at);
  }
}

}  // namespace

std::unique_ptr<Form> makeListapc(Session& session) { return std::make_unique<Listapc>(session); }

}  // namespace tarvex
