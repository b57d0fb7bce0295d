// Sorted insertion shared by the chord, text and tempo lists.
#pragma once

#include "document/one_based.h"
#include "document/types.h"

namespace vt::detail {

// Inserts behind every entry whose tick is not above the new one; returns its
// number, or 0 when the list is full.
template <class T>
int insertSorted(OneBased<T>& list, T entry) {
  if (list.last() >= kMaxEntrees) return 0;
  int p = 1;
  while (p <= list.last() && list[p].intX <= entry.intX)
    ++p;
  list.insert(p, std::move(entry));
  return p;
}

// The last entry standing exactly at the tick, or 0.
template <class T>
int searchLast(const OneBased<T>& list, int intX) {
  int found = 0;
  for (int n = 1; n <= list.last(); ++n)
    if (list[n].intX == intX) found = n;
  return found;
}

// Drops the first entry at or past `largeur` and everything after it.
template <class T>
void cutFrom(OneBased<T>& list, int largeur) {
  for (int n = 1; n <= list.last(); ++n)
    if (list[n].intX >= largeur) {
      list.truncateFrom(n);
      return;
    }
}

}  // namespace vt::detail
