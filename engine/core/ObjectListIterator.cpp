#include "engine/core/ObjectListIterator.h"

#include "engine/core/ObjectList.h"

namespace ot {

ObjectListIterator::ObjectListIterator(const ObjectList* p_list) : m_p_list(p_list) { first(); }

ObjectListIterator& ObjectListIterator::operator=(const ObjectListIterator& other) {
  m_p_list = other.m_p_list;
  first();
  return *this;
}

void ObjectListIterator::first() { m_index = 0; }

void ObjectListIterator::last() { m_index = m_p_list->m_count - 1; }

void ObjectListIterator::next() {
  if (m_index < m_p_list->m_count) m_index++;
}

bool ObjectListIterator::isDone() const { return m_index >= m_p_list->m_count; }

Object* ObjectListIterator::currentObject() const {
  if (m_index < 0 || m_index >= m_p_list->m_count) return nullptr;
  return m_p_list->m_p_obj[m_index];
}

}  // namespace ot
