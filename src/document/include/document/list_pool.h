// Lists numbered from 1 kept side by side in large blocks, for the copies a
// walk or a player makes of a whole piece: one allocation for thousands of
// lists instead of one each. What a block holds is never changed once
// written, so copies of a pool share its blocks, and a view handed out stays
// valid for as long as any pool holding its block lives.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "document/one_based.h"

namespace vt {

// A read-only window on a list numbered from 1 that lives elsewhere.
template <class T>
class OneBasedView {
 public:
  OneBasedView() = default;
  OneBasedView(const T* données, int n) : m_données(données), m_n(n) {}
  // NOLINTNEXTLINE(google-explicit-constructor): a list reads as a view of it.
  OneBasedView(const OneBased<T>& liste) : m_données(liste.raw().data()), m_n(liste.last()) {}

  int last() const { return m_n; }
  bool empty() const { return m_n == 0; }
  bool has(int i) const { return i >= 1 && i <= m_n; }
  const T& operator[](int i) const {
    assert(has(i));
    return m_données[i - 1];
  }
  const T* begin() const { return m_données; }
  const T* end() const { return m_données + m_n; }

  friend bool operator==(OneBasedView a, OneBasedView b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
  }

 private:
  const T* m_données = nullptr;
  int m_n = 0;
};

template <class T>
class ListPool {
 public:
  // A copy of the list in the pool's blocks.
  OneBasedView<T> add(OneBasedView<T> liste) {
    if (liste.empty()) return {};
    const std::size_t n = static_cast<std::size_t>(liste.last());
    if (m_blocs.empty() || m_libre < n) {
      const std::size_t taille = std::max(n, kBloc);
      m_blocs.push_back(std::shared_ptr<T[]>(new T[taille]));
      m_suivant = m_blocs.back().get();
      m_libre = taille;
    }
    T* début = m_suivant;
    std::copy(liste.begin(), liste.end(), début);
    m_suivant += n;
    m_libre -= n;
    return {début, liste.last()};
  }

  // Forgets every list; views handed out stay valid while another pool
  // shares their block.
  void clear() {
    m_blocs.clear();
    m_suivant = nullptr;
    m_libre = 0;
  }

  // A copy shares the blocks written so far, and writes its own from then on.
  ListPool() = default;
  ListPool(const ListPool& autre) : m_blocs(autre.m_blocs) {}
  ListPool& operator=(const ListPool& autre) {
    if (this != &autre) {
      m_blocs = autre.m_blocs;
      m_suivant = nullptr;
      m_libre = 0;
    }
    return *this;
  }
  ListPool(ListPool&& autre) noexcept
      : m_blocs(std::move(autre.m_blocs)), m_suivant(autre.m_suivant), m_libre(autre.m_libre) {
    autre.clear();
  }
  ListPool& operator=(ListPool&& autre) noexcept {
    if (this != &autre) {
      m_blocs = std::move(autre.m_blocs);
      m_suivant = autre.m_suivant;
      m_libre = autre.m_libre;
      autre.clear();
    }
    return *this;
  }

 private:
  static constexpr std::size_t kBloc = 65536;
  std::vector<std::shared_ptr<T[]>> m_blocs;
  T* m_suivant = nullptr;
  std::size_t m_libre = 0;
};

}  // namespace vt
