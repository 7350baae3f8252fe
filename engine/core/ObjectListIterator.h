#pragma once

namespace ot {

class Object;
class ObjectList;

// Walks an ObjectList by index. The count is read live, so the list may
// shrink under the iterator without it running off the end.
class ObjectListIterator {
 public:
  explicit ObjectListIterator(const ObjectList* p_list);
  ObjectListIterator& operator=(const ObjectListIterator& other);
  ObjectListIterator(const ObjectListIterator& other) = default;

  void first();
  void last();
  // Advances, but never past the count.
  void next();
  bool isDone() const;
  // The item at the index, or null past the end.
  Object* currentObject() const;

 private:
  int m_index = 0;
  const ObjectList* m_p_list = nullptr;
};

}  // namespace ot
