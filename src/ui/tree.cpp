#include "ui/tree.h"

#include <algorithm>
#include <utility>

namespace ui {
namespace {

class NodeRows : public Rows {
 public:
  NodeRows(const std::vector<TreeNode>& nodes, const std::vector<std::size_t>& shown)
      : nodes_(nodes), shown_(shown) {}
  std::size_t count() const override { return shown_.size(); }
  std::string cell(std::size_t row, std::size_t) const override { return nodes_[shown_[row]].text; }

 private:
  const std::vector<TreeNode>& nodes_;
  const std::vector<std::size_t>& shown_;
};

}  // namespace

Tree::Tree(Form& form, std::string_view name, std::string_view caption, int width)
    : List(form, name, caption, {{"", width}}) {}
Tree::~Tree() = default;

void Tree::setNodes(std::vector<TreeNode> nodes) {
  nodes_ = std::move(nodes);
  depths_.assign(nodes_.size(), 0);
  parents_.assign(nodes_.size(), false);
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    if (nodes_[i].parent < 0) continue;
    const auto parent = static_cast<std::size_t>(nodes_[i].parent);
    depths_[i] = depths_[parent] + 1;
    parents_[parent] = true;
  }
  show();
}

void Tree::openAll(bool open) {
  for (std::size_t i = 1; i < nodes_.size(); ++i) nodes_[i].open = open;
  show();
}

void Tree::toggle(int row) {
  if (!hasChildren(row)) return;
  TreeNode& node = nodes_[nodeAt(row)];
  node.open = !node.open;
  show();
  select(row);
}

void Tree::show() {
  std::vector<bool> visible(nodes_.size());
  shown_.clear();
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    const auto parent = static_cast<std::size_t>(std::max(0, nodes_[i].parent));
    visible[i] = nodes_[i].parent < 0 || (visible[parent] && nodes_[parent].open);
    if (visible[i]) shown_.push_back(i);
  }
  setRows(std::make_unique<NodeRows>(nodes_, shown_));
}

int Tree::selectedNode() const { return selected() < 0 ? -1 : static_cast<int>(nodeAt(selected())); }
int Tree::depth(int row) const { return depths_[nodeAt(row)]; }
bool Tree::hasChildren(int row) const { return parents_[nodeAt(row)]; }
bool Tree::isOpen(int row) const { return nodes_[nodeAt(row)].open; }

}  // namespace ui
