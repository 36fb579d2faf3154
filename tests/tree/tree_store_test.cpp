#include "tree/tree_store.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vardel {
namespace {

std::vector<int> children_of(TreeStore& store, int id) {
  auto r = store.retrieve(id);
  return {r.children.begin(), r.children.end()};
}

class TreeStoreTest : public ::testing::Test {
 protected:
  void SetUp() override {
    store.start();
    store.scratch().open();
  }
  // Root 1 with children 2, 3, 4 (3 classes), node 3 split into 8, 9, 10.
  void grow_sample() {
    store.add_node(1, 0, std::vector<double>{10, 1, 0.5});
    for (int k = 2; k <= 4; ++k) store.add_node(k, 1, std::vector<double>{double(k), 0.25 * k});
    for (int k = 8; k <= 10; ++k) store.add_node(k, 3, std::vector<double>{double(k)});
  }
  TreeStore store;
};

TEST_F(TreeStoreTest, ChildListsRunFromNewestToOldest) {
  grow_sample();
  EXPECT_EQ(children_of(store, 1), (std::vector<int>{4, 3, 2}));
  EXPECT_EQ(children_of(store, 3), (std::vector<int>{10, 9, 8}));
  auto leaf = store.retrieve(2);
  ASSERT_TRUE(leaf.found);
  EXPECT_EQ(leaf.children.size(), 0u);  // terminal: an empty list, not a failure
  EXPECT_EQ(leaf.y(2), 0.5);
  EXPECT_FALSE(store.retrieve(99).found);
  EXPECT_EQ(store.maxy(), 3);
}

TEST_F(TreeStoreTest, UnknownParentWarnsAndHangsTheNodeAtTheTop) {
  testing::internal::CaptureStdout();
  store.add_node(7, 5);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            " no parent            5  found for            7\n");
  EXPECT_TRUE(store.retrieve(7).found);
}

TEST_F(TreeStoreTest, RemovingAMiddleChildKeepsTheOthersInOrder) {
  grow_sample();
  store.remove_node(3);
  EXPECT_EQ(children_of(store, 1), (std::vector<int>{4, 2}));
  EXPECT_FALSE(store.retrieve(9).found);  // the subtree went with it
  store.remove_node(3);                   // already gone: nothing happens
  EXPECT_EQ(children_of(store, 1), (std::vector<int>{4, 2}));
}

TEST_F(TreeStoreTest, DumpAndRestoreKeepPayloadsAndReverseChildLists) {
  grow_sample();
  std::vector<std::vector<double>> before;
  for (int id : {1, 2, 3, 4, 8, 9, 10}) {
    auto r = store.retrieve(id);
    before.emplace_back(r.y.span().begin(), r.y.span().end());
  }
  store.dump_tree(1);
  store.finish();
  store.restart();  // maxy survives, so the restore buffer is large enough
  EXPECT_EQ(store.maxy(), 3);
  store.scratch().rewind();
  store.restore_tree();
  int i = 0;
  for (int id : {1, 2, 3, 4, 8, 9, 10}) {
    auto r = store.retrieve(id);
    ASSERT_TRUE(r.found) << id;
    EXPECT_EQ(std::vector<double>(r.y.span().begin(), r.y.span().end()), before[i++]);
  }
  EXPECT_EQ(children_of(store, 1), (std::vector<int>{2, 3, 4}));
  EXPECT_EQ(children_of(store, 3), (std::vector<int>{8, 9, 10}));
  // A second round trip restores the original order.
  store.scratch().rewind();
  store.dump_tree(1);
  store.restart();
  store.scratch().rewind();
  store.restore_tree();
  EXPECT_EQ(children_of(store, 1), (std::vector<int>{4, 3, 2}));
}

TEST_F(TreeStoreTest, DumpOfAnUnknownNodeWritesOnlyTheEndRecord) {
  grow_sample();
  store.dump_tree(42);
  store.restart();
  store.scratch().rewind();
  store.restore_tree();
  EXPECT_FALSE(store.retrieve(1).found);
}

}  // namespace
}  // namespace vardel
