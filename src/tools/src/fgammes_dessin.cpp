// What FGammes draws: the marks on the strip, the piano row, and the picture
// of a range of frets for the clipboard and the printer.
#include <QLabel>
#include <QPainter>
#include <QPrinter>
#include <algorithm>
#include <cmath>

#include "shell/manche.h"
#include "shell/vt.h"
#include "tools/fgammes.h"

namespace vt {

namespace {

// The piano row painted in the background: 15 white keys of 16 x 60 from
// (117, 238), the first an A; a marked white key shows its part below the
// black keys, a marked black key the whole of it.
constexpr int kClavierX = 117;
constexpr int kClavierY = 238;
constexpr int kLargeurBlanche = 16;
constexpr int kHauteurNoire = 38;
constexpr int kLargeurNoire = 10;
const QRect kPuitsClavier(109, 231, 256, 73);  // the well around the keys

// For each note from A, its white key (0 A ... 6 G), or the white key on whose
// right the black key stands, and whether it is black.
struct PlaceTouche {
  int blanche;
  bool noire;
};
constexpr std::array<PlaceTouche, 12> kTouches = {{{0, false},
                                                   {0, true},
                                                   {1, false},
                                                   {2, false},
                                                   {2, true},
                                                   {3, false},
                                                   {3, true},
                                                   {4, false},
                                                   {5, false},
                                                   {5, true},
                                                   {6, false},
                                                   {6, true}}};

QRect toucheMarquée(int position) {
  const auto& t = kTouches[static_cast<std::size_t>((position - 1) % 12)];
  const int i = 7 * ((position - 1) / 12) + t.blanche;
  if (t.noire)
    return {kClavierX + kLargeurBlanche * (i + 1) - kLargeurNoire / 2, kClavierY, kLargeurNoire,
            kHauteurNoire};
  return {kClavierX + kLargeurBlanche * i, kClavierY + kHauteurNoire, kLargeurBlanche, 22};
}

// The picture of a range: margins, the title, the board, the construction.
constexpr int kMarge = 12;
constexpr int kHauteurTitre = 26;
constexpr int kHauteurConstruction = 26;
// Room on each side of a fret's centre: its half width and a little more.
constexpr double kDemiCase = 300;
constexpr double kTpp = manche::kTwipsParPixel;

QFont police(int pixels, bool gras) {
  QFont f(QStringLiteral("Arial"));
  f.setPixelSize(pixels);
  f.setBold(gras);
  return f;
}

}  // namespace

// ---- The strip and the window ---------------------------------------------------------

void FGammes::drawGam() {
  m_vt.setMancheContenu(1);
  const int setGAMConst = m_vt.settings().setGAMConst;
  const int lang = m_vt.setLang();
  const QString construction =
      QString::fromStdString(texteConstruction(m_notes, setGAMConst, lang));
  m_txtConst->setText(
      construction.isEmpty() ? QString() : m_vt.loadString(705) + QLatin1Char(' ') + construction);
  update();
  for (const tCaseGamme& c : casesGamme(m_notes, m_vt.guitare())) {
    m_vt.drawRond(c.c, c.corde, estFondamentale(m_notes, c.position) ? kRondBleu : kRondJaune);
    m_vt.printManche(c.c, c.corde,
                     QString::fromStdString(etiquetteNote(m_notes, c.position, setGAMConst, lang)));
  }
}

void FGammes::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (m_fond.isNull()) {
    p.fillRect(rect(), QColor(0x24, 0x1A, 0x13));
  } else {
    p.drawPixmap(0, 0, m_fond);
  }
  dessineClavier(p);
}

void FGammes::dessineClavier(QPainter& p) const {
  if (m_vt.settings().setGAMPiano != 1) {
    // No keyboard: its well is covered with the colour of the seats.
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x24, 0x1A, 0x13));
    p.drawRoundedRect(kPuitsClavier, 6, 6);
    return;
  }
  for (int position = 1; position <= 24; ++position) {
    if (!m_notes.notes[static_cast<std::size_t>(position)]) continue;
    const QRect r = toucheMarquée(position);
    const bool noire = r.width() == kLargeurNoire;
    p.setFont(police(noire ? 7 : 9, true));
    const QPixmap& image = noire ? m_toucheNoire : m_toucheBlanche;
    if (!image.isNull()) p.drawPixmap(r.topLeft(), image);
    // The note's name on the mark, near the bottom of the key.
    const QString nom =
        QString::fromUtf8(kNomsNotesLa[static_cast<std::size_t>((position - 1) % 12)]);
    if (noire) {
      // Above the mark, light on the dark of the key, with a shadow.
      const QRect texte(r.left() - 4, r.top() + 6, r.width() + 8, 12);
      p.setPen(QColor(0, 0, 0, 220));
      p.drawText(texte.translated(1, 1), Qt::AlignCenter, nom);
      p.setPen(QColor(0xF3, 0xE6, 0xC8));
      p.drawText(texte, Qt::AlignCenter, nom);
    } else {
      p.setPen(Qt::white);
      p.drawText(QRect(r.left(), r.top() + 4, r.width(), 15), Qt::AlignCenter, nom);
    }
  }
}

// ---- The picture of a range of frets --------------------------------------------------

namespace {

struct Plage {
  double gauche;  // twips of the board
  double droite;
};

Plage plage(const manche::Vue& v, int min, int max) {
  const double a = manche::centreCaseX(v, min);
  const double b = manche::centreCaseX(v, max);
  return {std::max(0.0, std::min(a, b) - kDemiCase), std::max(a, b) + kDemiCase};
}

// The fret numbers the board prints along its bottom edge.
constexpr double kBasNumérosBoard = 10;
constexpr int kHauteurNuméros = 14;

}  // namespace

QSize FGammes::tailleImageGamme(int min, int max) const {
  const manche::Vue v{std::clamp<int>(m_vt.guitare().nbrCordes, 1, 7), 0,
                      m_vt.settings().setLeftHanded != 0};
  const Plage pl = plage(v, min, max);
  const int board = static_cast<int>(std::ceil(manche::hauteurBoard(v.nbrCordes) / kTpp));
  // As wide as the board, or as its texts when they are longer.
  const int largeur =
      std::max({static_cast<int>(std::ceil((pl.droite - pl.gauche) / kTpp)),
                QFontMetrics(police(15, true)).horizontalAdvance(m_titre),
                QFontMetrics(police(11, false)).horizontalAdvance(m_txtConst->text())});
  return {largeur + 2 * kMarge,
          kMarge + kHauteurTitre + board + kHauteurNuméros + kHauteurConstruction + kMarge};
}

void FGammes::dessineImageGamme(QPainter& p, int min, int max) const {
  min = std::clamp(min, 0, manche::kDernièreCase);
  max = std::clamp(max, min, manche::kDernièreCase);
  const QSize taille = tailleImageGamme(min, max);
  AspectManche a;
  a.setManche = 2;  // white, for paper
  a.gaucher = m_vt.settings().setLeftHanded != 0;
  a.nbrCordes = std::clamp<int>(m_vt.guitare().nbrCordes, 1, 7);
  const manche::Vue v{a.nbrCordes, 0, a.gaucher};
  const Plage pl = plage(v, min, max);
  const double largeurBoard = (pl.droite - pl.gauche) / kTpp;
  const double hauteurBoard = manche::hauteurBoard(a.nbrCordes) / kTpp;
  const int setGAMConst = m_vt.settings().setGAMConst;
  const int lang = m_vt.setLang();

  p.save();
  p.fillRect(QRect(QPoint(0, 0), taille), Qt::white);
  p.setPen(Qt::black);
  p.setFont(police(15, true));
  p.drawText(QRectF(kMarge, kMarge, taille.width() - 2 * kMarge, kHauteurTitre),
             Qt::AlignLeft | Qt::AlignTop, m_titre);

  // The board of the range, left aligned under the title.
  p.save();
  p.translate(kMarge - pl.gauche / kTpp, kMarge + kHauteurTitre);
  const QRectF plageBoard(pl.gauche / kTpp, 0, largeurBoard, hauteurBoard);
  // The board's own fret numbers would hide under the dots of the last
  // string: the numbers of the range come under the board instead.
  p.setClipRect(plageBoard.adjusted(0, 0, 0, -kBasNumérosBoard));
  drawManche(p, static_cast<int>(std::ceil(pl.droite / kTpp)) + 1, a, 0);
  p.setClipRect(plageBoard);
  p.setFont(police(9, true));
  const QFontMetricsF m(p.font());
  for (const tCaseGamme& c : casesGamme(m_notes, m_vt.guitare())) {
    if (c.c < min || c.c > max || c.corde > a.nbrCordes) continue;
    const bool racine = estFondamentale(m_notes, c.position);
    vt::drawRond(p, a, v, c.c, c.corde, racine ? kRondBleu : kRondJaune);
    const QString texte =
        QString::fromStdString(etiquetteNote(m_notes, c.position, setGAMConst, lang));
    if (texte.isEmpty()) continue;
    const QPointF centre(manche::centreCaseX(v, c.c) / kTpp,
                         manche::centreCordeY(v, c.corde) / kTpp);
    p.setPen(racine ? Qt::white : Qt::black);
    p.drawText(QRectF(centre.x() - 20, centre.y() - m.height() / 2, 40, m.height()),
               Qt::AlignCenter, texte);
  }
  p.setClipping(false);
  p.setPen(Qt::black);
  p.setFont(police(10, false));
  for (int c = std::max(min, 1); c <= max; ++c)
    p.drawText(
        QRectF(manche::centreCaseX(v, c) / kTpp - 15, hauteurBoard + 1, 30, kHauteurNuméros - 1),
        Qt::AlignHCenter | Qt::AlignTop, QString::number(c));
  p.restore();

  p.setFont(police(11, false));
  p.drawText(QRectF(kMarge, kMarge + kHauteurTitre + hauteurBoard + kHauteurNuméros + 4,
                    taille.width() - 2 * kMarge, kHauteurConstruction - 4),
             Qt::AlignLeft | Qt::AlignVCenter, m_txtConst->text());
  p.restore();
}

QImage FGammes::imageGamme(int min, int max) const {
  // Twice the screen's pixels, so that a pasted picture stays sharp.
  constexpr int kEchelle = 2;
  const QSize taille = tailleImageGamme(min, max);
  QImage image(taille * kEchelle, QImage::Format_RGB32);
  image.setDevicePixelRatio(kEchelle);
  image.fill(Qt::white);
  QPainter p(&image);
  p.setRenderHint(QPainter::Antialiasing, true);
  p.setRenderHint(QPainter::TextAntialiasing, true);
  dessineImageGamme(p, min, max);
  return image;
}

void FGammes::printGamme(int min, int max) {
  QPrinter& printer = m_vt.printer();
  if (!m_dialogueImpression(printer)) return;
  QPainter p;
  if (!p.begin(&printer)) return;
  const QRectF page = printer.pageRect(QPrinter::DevicePixel);
  const QSize taille = tailleImageGamme(min, max);
  // As wide as the page allows, at most two and a half times its size on
  // screen; across the middle of the page, at its top.
  const double naturel = printer.resolution() / 96.0;
  const double f = std::min(page.width() / taille.width(), 2.5 * naturel);
  p.setRenderHint(QPainter::Antialiasing, true);
  p.translate((page.width() - f * taille.width()) / 2, 0);
  p.scale(f, f);
  dessineImageGamme(p, min, max);
  p.end();
}

}  // namespace vt
