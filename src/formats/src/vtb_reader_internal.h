// Shared by the readers of the version families: a bounds-checked cursor on
// the file's bytes and the state of one load.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "formats/vtb.h"

namespace vt::vtbdetail {

// Every read is checked: past the end it gives 0, and the cursor remembers
// that the file ended early. Readers test `échec()` at each record so that a
// damaged file stops quickly.
class Curseur {
 public:
  explicit Curseur(std::span<const std::uint8_t> d) : d_(d) {}

  std::size_t pos() const { return pos_; }
  std::size_t taille() const { return d_.size(); }
  std::size_t reste() const { return d_.size() - pos_; }
  bool échec() const { return échec_; }
  const std::string& raison() const { return raison_; }

  void échouer(const std::string& raison) {
    if (échec_) return;
    échec_ = true;
    raison_ = raison + " (byte " + std::to_string(pos_) + ")";
    pos_ = d_.size();
  }
  // n bytes at the cursor, which moves past them; nullptr when they are not all there.
  const std::uint8_t* bloc(std::size_t n) {
    if (échec_ || n > reste()) {
      échouer("the file ends early");
      return nullptr;
    }
    const std::uint8_t* p = d_.data() + pos_;
    pos_ += n;
    return p;
  }
  byt u8() {
    const std::uint8_t* p = bloc(1);
    return p != nullptr ? p[0] : 0;
  }
  int be16() {
    const std::uint8_t* p = bloc(2);
    return p != nullptr ? (p[0] << 8) | p[1] : 0;
  }
  lng be32() {
    const std::uint8_t* p = bloc(4);
    if (p == nullptr) return 0;
    const std::uint32_t u = (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) |
                            (std::uint32_t{p[2]} << 8) | std::uint32_t{p[3]};
    return static_cast<lng>(u);
  }
  void saute(std::size_t n) { bloc(n); }
  // A length byte and that many bytes.
  std::string str() {
    const std::size_t n = u8();
    const std::uint8_t* p = bloc(n);
    return p != nullptr ? std::string(reinterpret_cast<const char*>(p), n) : std::string();
  }

 private:
  std::span<const std::uint8_t> d_;
  std::size_t pos_ = 0;
  bool échec_ = false;
  std::string raison_;
};

struct Chargement {
  Curseur& in;
  CVantoroTablature& doc;
  const VtbContexte& ctx;
  VtbLecture& r;
  int version;

  // After a track's instrument fields: the catalogue's instrument with the
  // same strings becomes the current one. The search ends after the last
  // instrument; without a match the current instrument stays.
  void associerGuitare(const tPiste& piste) {
    if (ctx.catalogue == nullptr) return;
    if (const int i = chercherGuitareAccordage(*ctx.catalogue, piste)) {
      r.guitare = ctx.catalogue->loadGuitare(i, ctx.setLang);
      r.setGuitare = i;
    }
  }
  // The string count of a track head: 1 to 7, anything else is damage.
  int lireNbrCordes() {
    const int s = in.u8();
    if (!in.échec() && (s < 1 || s > kMaxCordes)) in.échouer("string count " + std::to_string(s));
    return in.échec() ? 0 : s;
  }
};

// Versions 4 and 5: the track head and the event stream.
void lireFluxÉvénements(Chargement& c);

}  // namespace vt::vtbdetail
