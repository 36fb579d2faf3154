#include "tree/tree_store.hpp"

#include <algorithm>
#include <iostream>

#include "numerics/format.hpp"
#include "run/stop.hpp"

namespace vardel {

namespace {
constexpr std::int32_t kEndRecordId = -1;
}

TreeStore& tree_store() {
  static TreeStore instance;
  return instance;
}

void TreeStore::start() {
  restart();
  maxy_ = 0;
}

void TreeStore::restart() {
  finish();
  forest_root_ = new Node{};
  nodeids_.clear();
}

void TreeStore::finish() {
  if (forest_root_ != nullptr) {
    free_subtree(forest_root_);
    forest_root_ = nullptr;
  }
  index_.clear();
  nodeids_.clear();
}

void TreeStore::reset() {
  finish();
  maxy_ = 0;
  scratch_.close();
}

void TreeStore::free_subtree(Node* node) {
  Node* child = node->child;
  while (child != nullptr) {
    Node* next = child->sibling;
    free_subtree(child);
    child = next;
  }
  auto it = index_.find(node->id);
  if (it != index_.end() && it->second == node) index_.erase(it);
  delete node;
}

TreeStore::Node* TreeStore::find(int id) const {
  auto it = index_.find(id);
  return it == index_.end() ? nullptr : it->second;
}

void TreeStore::add_node(int id, int parent, std::span<const double> y) {
  if (forest_root_ == nullptr) start();
  Node* node = new Node{};
  node->id = id;
  node->y.assign(y.begin(), y.end());
  maxy_ = std::max(maxy_, static_cast<int>(y.size()));

  Node* up = forest_root_;
  if (parent != 0) {
    up = find(parent);
    if (up == nullptr) {
      // The node is kept at the top of the forest.
      write_list(std::cout, {"no parent ", parent, " found for ", id});
      up = forest_root_;
    }
  }
  node->parent = up;
  node->sibling = up->child;
  up->child = node;
  index_[id] = node;
}

void TreeStore::remove_node(int id) {
  Node* node = find(id);
  if (node == nullptr) return;
  Node* up = node->parent;
  // Unlink the node from its parent's list; the other children keep their order.
  if (up->child == node) {
    up->child = node->sibling;
  } else {
    Node* before = up->child;
    while (before->sibling != node) before = before->sibling;
    before->sibling = node->sibling;
  }
  free_subtree(node);
}

TreeStore::Retrieved TreeStore::retrieve(int id) {
  Node* node = find(id);
  if (node == nullptr) return {};
  nodeids_.clear();
  for (Node* c = node->child; c != nullptr; c = c->sibling) nodeids_.push_back(c->id);
  return {true, FView<double>(std::span<double>(node->y)), std::span<const int>(nodeids_)};
}

void TreeStore::dump_subtree(const Node* node) {
  scratch_.write_int(node->id);
  scratch_.write_int(static_cast<std::int32_t>(node->y.size()));
  scratch_.write_doubles(node->y);
  scratch_.write_int(node->parent == nullptr ? 0 : node->parent->id);
  for (const Node* c = node->child; c != nullptr; c = c->sibling) dump_subtree(c);
}

void TreeStore::dump_tree(int id) {
  if (const Node* node = find(id)) dump_subtree(node);
  scratch_.write_int(kEndRecordId);
  scratch_.write_int(0);
  scratch_.write_int(kEndRecordId);
}

void TreeStore::restore_tree() {
  std::vector<double> buffer(static_cast<std::size_t>(maxy_));
  for (;;) {
    const std::int32_t id = scratch_.read_int();
    const std::int32_t n = scratch_.read_int();
    if (n < 0 || n > maxy_) {
      std::cout << "  ***ERROR*** Tree scratch file: record of node " << id << " is damaged"
                << std::endl;
      stop_run(1);
    }
    std::span<double> y(buffer.data(), static_cast<std::size_t>(n));
    scratch_.read_doubles(y);
    const std::int32_t parent = scratch_.read_int();
    if (id == kEndRecordId) break;
    add_node(id, parent, y);
  }
}

}  // namespace vardel
