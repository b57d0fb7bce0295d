// A radix-2 fast Fourier transform of one fixed size, its twiddles computed
// once, so that the pitch detector's autocorrelation allocates nothing per
// frame.
#pragma once

#include <complex>
#include <cstddef>
#include <vector>

namespace vt {

class TransforméeFourier {
 public:
  // `taille` is a power of two, 2 or more.
  explicit TransforméeFourier(std::size_t taille);

  std::size_t taille() const { return m_taille; }
  // In place; the inverse is not scaled (divide by taille()).
  void directe(std::vector<std::complex<double>>& x) const { transforme(x, false); }
  void inverse(std::vector<std::complex<double>>& x) const { transforme(x, true); }

 private:
  void transforme(std::vector<std::complex<double>>& x, bool inverse) const;

  std::size_t m_taille;
  std::vector<std::complex<double>> m_racines;  // e^(-2 pi i k / taille), k < taille / 2
  std::vector<std::size_t> m_permutation;       // bit reversal
};

// The smallest power of two at or above n (at least 2).
std::size_t puissanceDeDeux(std::size_t n);

}  // namespace vt
