#include "engine/core/ObjectList.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "engine/core/ObjectListIterator.h"

using ot::Object;
using ot::ObjectList;
using ot::ObjectListIterator;

namespace {

// The list never dereferences its items, so any distinct addresses will do.
Object* fake(int n) { return reinterpret_cast<Object*>(static_cast<uintptr_t>(0x1000 + 16 * n)); }

}  // namespace

TEST(ObjectList, GrowsByDoublingAndKeepsInsertionOrder) {
  ObjectList list;
  EXPECT_TRUE(list.isEmpty());
  EXPECT_FALSE(list.isFull());
  for (int i = 0; i < 9; i++) ASSERT_EQ(0, list.insert(fake(i)));
  EXPECT_EQ(9, list.getCount());
  for (int i = 0; i < 9; i++) EXPECT_EQ(fake(i), list[i]);
  EXPECT_EQ(-1, list.insert(nullptr));
  EXPECT_EQ(9, list.getCount());
}

TEST(ObjectList, RemoveTakesFirstMatchAndClosesTheGap) {
  ObjectList list;
  list.insert(fake(1));
  list.insert(fake(2));
  list.insert(fake(1));
  list.insert(fake(3));
  EXPECT_EQ(0, list.remove(fake(1)));
  ASSERT_EQ(3, list.getCount());
  EXPECT_EQ(fake(2), list[0]);
  EXPECT_EQ(fake(1), list[1]);
  EXPECT_EQ(fake(3), list[2]);
  EXPECT_EQ(-1, list.remove(fake(7)));
}

TEST(ObjectList, CopiesAreIndependent) {
  ObjectList a;
  a.insert(fake(1));
  a.insert(fake(2));
  ObjectList b(a);
  b.remove(fake(1));
  EXPECT_EQ(2, a.getCount());
  EXPECT_EQ(1, b.getCount());

  ObjectList c;
  c = a;
  c = c;  // self-assignment keeps the items
  a.clear();
  EXPECT_EQ(2, c.getCount());
  EXPECT_EQ(fake(2), c[1]);
}

TEST(ObjectList, ClearKeepsTheArrayForReuse) {
  ObjectList list;
  for (int i = 0; i < 4; i++) list.insert(fake(i));
  list.clear();
  EXPECT_TRUE(list.isEmpty());
  EXPECT_EQ(0, list.insert(fake(9)));
  EXPECT_EQ(fake(9), list[0]);
}

TEST(ObjectList, IndexOutOfRangeThrows) {
  ObjectList list;
  list.insert(fake(1));
  EXPECT_THROW(list[1], std::out_of_range);
  EXPECT_THROW(list[-1], std::out_of_range);
  try {
    list[5];
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ("ObjectList::operator[](): Invalid index!", e.what());
  }
}

TEST(ObjectList, SumsAppendInOrder) {
  ObjectList a, b;
  a.insert(fake(1));
  b.insert(fake(2));
  b.insert(fake(3));
  ObjectList sum = a + b;
  ASSERT_EQ(3, sum.getCount());
  EXPECT_EQ(fake(3), sum[2]);
  a += a;  // appending a list to itself doubles it
  ASSERT_EQ(2, a.getCount());
  EXPECT_EQ(fake(1), a[1]);
}

TEST(ObjectList, EqualityComparesTheRecordsNotTheItems) {
  ObjectList empty_a, empty_b;
  EXPECT_TRUE(empty_a == empty_b);  // no bytes compared
  ObjectList a, b;
  a.insert(fake(1));
  b.insert(fake(2));
  // One byte of the record is compared: the count, equal here.
  EXPECT_TRUE(a == b);
  b.insert(fake(3));
  EXPECT_TRUE(a != b);
  // With many items the array pointers differ, so even equal items compare unequal.
  ObjectList c, d;
  for (int i = 0; i < 20; i++) {
    c.insert(fake(i));
    d.insert(fake(i));
  }
  EXPECT_FALSE(c == d);
  EXPECT_TRUE(c == c);
}

TEST(ObjectListIterator, WalksAndStopsEarlyWhenTheListShrinks) {
  ObjectList list;
  ObjectListIterator empty(&list);
  EXPECT_TRUE(empty.isDone());
  EXPECT_EQ(nullptr, empty.currentObject());

  for (int i = 0; i < 3; i++) list.insert(fake(i));
  ObjectListIterator it(&list);
  EXPECT_EQ(fake(0), it.currentObject());
  it.next();
  list.remove(fake(2));
  list.remove(fake(1));
  EXPECT_TRUE(it.isDone());
  EXPECT_EQ(nullptr, it.currentObject());
  it.next();
  it.next();
  EXPECT_TRUE(it.isDone());

  it.last();
  EXPECT_EQ(fake(0), it.currentObject());
  ObjectListIterator other(&list);
  other.next();
  it = other;  // assignment starts over
  EXPECT_EQ(fake(0), it.currentObject());
}
