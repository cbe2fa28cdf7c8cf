// A list whose rows hang on each other: it shows those whose parents all stand open.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"

namespace ui {

struct TreeNode {
  std::string text;
  int parent = -1;  // its place among the nodes, before its own; -1: none
  bool open = true;
};

class Tree : public List {
 public:
  Tree(Form& form, std::string_view name, std::string_view caption, int width);
  ~Tree() override;

  void setNodes(std::vector<TreeNode> nodes);
  void openAll(bool open);  // but for the first node, which stays open
  void toggle(int row);     // of the rows shown; nothing happens to one without children

  int selectedNode() const;  // -1: none
  int depth(int row) const;
  bool hasChildren(int row) const;
  bool isOpen(int row) const;
  const std::vector<TreeNode>& nodes() const { return nodes_; }

  std::string_view kind() const override { return "tree"; }

 private:
  void show();
  std::size_t nodeAt(int row) const { return shown_[static_cast<std::size_t>(row)]; }

  std::vector<TreeNode> nodes_;
  std::vector<int> depths_;
  std::vector<bool> parents_;       // which nodes have children
  std::vector<std::size_t> shown_;  // nodes, by row
};

}  // namespace ui
