#include "engine/core/ObjectListIterator.h"

#include <cstddef>

#include "engine/core/ObjectList.h"

namespace ot {

ObjectListIterator::ObjectListIterator(const ObjectList* p_list) : m_p_list(p_list) { first(); }

// Safe on itself: it copies a pointer and starts over.
ObjectListIterator& ObjectListIterator::operator=(  // NOLINT(bugprone-unhandled-self-assignment)
    const ObjectListIterator& other) {
  m_p_list = other.m_p_list;
  first();
  return *this;
}

void ObjectListIterator::first() { m_index = 0; }

void ObjectListIterator::last() { m_index = m_p_list->getCount() - 1; }

void ObjectListIterator::next() {
  if (m_index < m_p_list->getCount()) m_index++;
}

bool ObjectListIterator::isDone() const { return m_index >= m_p_list->getCount(); }

Object* ObjectListIterator::currentObject() const {
  if (m_index < 0 || m_index >= m_p_list->getCount()) return nullptr;
  return m_p_list->m_items[static_cast<std::size_t>(m_index)];
}

}  // namespace ot
