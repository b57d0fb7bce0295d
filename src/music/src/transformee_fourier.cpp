#include "transformee_fourier.h"

#include <cassert>
#include <cmath>
#include <numbers>
#include <utility>

namespace vt {

std::size_t puissanceDeDeux(std::size_t n) {
  std::size_t p = 2;
  while (p < n)
    p *= 2;
  return p;
}

TransforméeFourier::TransforméeFourier(std::size_t taille)
    : m_taille(taille), m_racines(taille / 2), m_permutation(taille) {
  assert(taille >= 2 && (taille & (taille - 1)) == 0);
  for (std::size_t k = 0; k < taille / 2; ++k) {
    const double a = -2.0 * std::numbers::pi * static_cast<double>(k) / static_cast<double>(taille);
    m_racines[k] = {std::cos(a), std::sin(a)};
  }
  std::size_t bits = 0;
  while ((std::size_t{1} << bits) < taille)
    ++bits;
  for (std::size_t i = 0; i < taille; ++i) {
    std::size_t r = 0;
    for (std::size_t b = 0; b < bits; ++b)
      if (i & (std::size_t{1} << b)) r |= std::size_t{1} << (bits - 1 - b);
    m_permutation[i] = r;
  }
}

void TransforméeFourier::transforme(std::vector<std::complex<double>>& x, bool inverse) const {
  assert(x.size() == m_taille);
  for (std::size_t i = 0; i < m_taille; ++i)
    if (i < m_permutation[i]) std::swap(x[i], x[m_permutation[i]]);
  // The butterflies on the real and imaginary parts themselves: the product
  // of std::complex checks for infinities on every multiplication.
  auto* v = reinterpret_cast<double*>(x.data());
  const auto* w = reinterpret_cast<const double*>(m_racines.data());
  const double signe = inverse ? -1.0 : 1.0;
  for (std::size_t longueur = 2; longueur <= m_taille; longueur *= 2) {
    const std::size_t moitié = longueur / 2;
    const std::size_t pas = m_taille / longueur;
    for (std::size_t début = 0; début < m_taille; début += longueur) {
      for (std::size_t k = 0; k < moitié; ++k) {
        const double wr = w[2 * k * pas], wi = signe * w[2 * k * pas + 1];
        double* a = v + 2 * (début + k);
        double* b = v + 2 * (début + k + moitié);
        const double br = b[0] * wr - b[1] * wi;
        const double bi = b[0] * wi + b[1] * wr;
        b[0] = a[0] - br;
        b[1] = a[1] - bi;
        a[0] += br;
        a[1] += bi;
      }
    }
  }
}

}  // namespace vt
