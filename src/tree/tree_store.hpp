// TreeStore (module struct): the one tree a run is working on.
//
// An in-memory general tree of numbered nodes, each carrying a payload array
// of doubles (the node record), with a way to dump a subtree to the scratch
// file and load it back. The store knows nothing of what a payload means.
//
// Children form a singly linked list; add_node puts a new child at the head,
// so a list runs from the newest child to the oldest, and a dump followed by
// a restore reverses every list. Pruning sums follow these lists, so their
// order is part of the results and must be kept exactly.
//
// Node fields: id (unique in the tree), y (payload, may be empty), parent
// (null only for the hidden forest root, id 0), child (head of the child
// list, null in a terminal node), sibling (next child of the same parent).
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "numerics/farray.hpp"
#include "tree/scratch_file.hpp"

namespace vardel {

class TreeStore {
 public:
  struct Retrieved {
    bool found = false;
    FView<double> y;                // the node's own payload; no copy
    std::span<const int> children;  // child numbers in list order; overwritten by the next retrieve
  };

  TreeStore() = default;
  TreeStore(const TreeStore&) = delete;
  TreeStore& operator=(const TreeStore&) = delete;
  ~TreeStore() { finish(); }

  // Creates the forest root; maxy starts at 0.
  void start();
  // As start, but maxy keeps its value (to load a tree again after finish).
  void restart();
  // Frees the whole tree, the forest root included.
  void finish();
  bool started() const { return forest_root_ != nullptr; }

  // Adds node id under the node numbered parent (0: the forest root) with a
  // copy of y. A parent that is not in the tree gets a warning on the screen,
  // and the node is hung under the forest root.
  void add_node(int id, int parent, std::span<const double> y = {});
  // Removes the node with its whole subtree; nothing happens for an unknown id.
  void remove_node(int id);
  Retrieved retrieve(int id);
  bool contains(int id) const { return index_.contains(id); }

  // Writes the subtree of id to the scratch file at its present position,
  // then the end record. For an unknown id only the end record is written.
  void dump_tree(int id);
  // Reads records from the scratch file's present position up to the end
  // record and adds each node.
  void restore_tree();

  ScratchFile& scratch() { return scratch_; }
  int maxy() const { return maxy_; }

  // Back to the state of a fresh process: no tree, maxy 0, scratch file closed.
  void reset();

 private:
  struct Node {
    int id = 0;
    std::vector<double> y;
    Node* parent = nullptr;
    Node* sibling = nullptr;
    Node* child = nullptr;
  };

  Node* find(int id) const;
  void dump_subtree(const Node* node);
  void free_subtree(Node* node);

  Node* forest_root_ = nullptr;
  std::unordered_map<int, Node*> index_;  // id -> node, for every node but the forest root
  std::vector<int> nodeids_;
  int maxy_ = 0;
  ScratchFile scratch_;
};

// The one tree store of the run.
TreeStore& tree_store();

}  // namespace vardel
