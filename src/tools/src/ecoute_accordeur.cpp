#include "ecoute_accordeur.h"

#include <QPainter>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "habillage_outil.h"

namespace vt {

namespace {
constexpr QPointF kCentre(110, 110);
constexpr double kPlageCents = 50;  // the scale runs from -50 to +50
constexpr double kDemiAngle = 60;   // degrees either side of the top
constexpr double kJusteCents = 2;   // in tune within this
constexpr std::size_t kMédiane = 3;

// The point at `cents` on a circle of radius `r` about the centre.
QPointF surLEchelle(double cents, double r) {
  const double a =
      (90.0 - kDemiAngle * std::clamp(cents, -kPlageCents, kPlageCents) / kPlageCents) *
      std::numbers::pi / 180.0;
  return {kCentre.x() + r * std::cos(a), kCentre.y() - r * std::sin(a)};
}
}  // namespace

EcouteAccordeur::EcouteAccordeur(EntreeAudio::Choix choix, QWidget* parent) : QWidget(parent) {
  setFixedSize(kCôté, kCôté);
  m_entrée = std::make_unique<EntreeAudio>(
      [this](std::span<const float> é, int f) { recoit(é, f); }, std::move(choix), this);
  m_minuterie.setInterval(kIntervalleMs);
  connect(&m_minuterie, &QTimer::timeout, this, &EcouteAccordeur::analyse);
  m_horloge.start();
}

EcouteAccordeur::~EcouteAccordeur() = default;

void EcouteAccordeur::setChoixPeripherique(EntreeAudio::Choix choix) {
  arrete();
  m_entrée = std::make_unique<EntreeAudio>(
      [this](std::span<const float> é, int f) { recoit(é, f); }, std::move(choix), this);
}

void EcouteAccordeur::setAccordage(std::vector<int> cordes, const std::array<QString, 12>& noms) {
  m_cordes = std::move(cordes);
  m_noms = noms;
  m_dernières.clear();
  m_lecture = {};
  update();
}

bool EcouteAccordeur::demarre() {
  m_lecture = {};
  m_dernières.clear();
  const bool ok = m_entrée->ouvre();
  m_étatVu = m_entrée->etat();
  if (ok) m_minuterie.start();
  update();
  emit lectureChangee();
  return ok;
}

void EcouteAccordeur::arrete() {
  m_minuterie.stop();
  m_entrée->ferme();
  m_lecture = {};
  m_dernières.clear();
  update();
}

void EcouteAccordeur::recoit(std::span<const float> échantillons, int fréquence) {
  if (fréquence <= 0) return;
  if (fréquence != m_fréquence || !m_détecteur) {
    m_fréquence = fréquence;
    RéglagesHauteur r;
    r.fréquence = fréquence;
    r.taille = tailleTrameAccordeur(fréquence);
    m_détecteur = std::make_unique<DétecteurHauteur>(r);
    m_tampon.assign(static_cast<std::size_t>(r.taille), 0.0f);
  }
  // The frame slides: the oldest samples leave as many as come in.
  const std::size_t N = m_tampon.size();
  if (échantillons.size() >= N) {
    std::copy(échantillons.end() - static_cast<std::ptrdiff_t>(N), échantillons.end(),
              m_tampon.begin());
  } else {
    std::shift_left(m_tampon.begin(), m_tampon.end(),
                    static_cast<std::ptrdiff_t>(échantillons.size()));
    std::copy(échantillons.begin(), échantillons.end(),
              m_tampon.end() - static_cast<std::ptrdiff_t>(échantillons.size()));
  }
  m_nouveau = true;
}

void EcouteAccordeur::analyse() {
  // A device that fails while it is read: the page says so.
  if (m_entrée->etat() != m_étatVu) {
    m_étatVu = m_entrée->etat();
    emit lectureChangee();
  }
  if (!m_détecteur || !m_nouveau) return;
  m_nouveau = false;
  const Hauteur h = m_détecteur->analyse(m_tampon);
  const qint64 maintenant = m_horloge.elapsed();
  if (h.voisée()) {
    m_dernierSon = maintenant;
    m_dernières.push_back(h.hz);
    if (m_dernières.size() > kMédiane) m_dernières.pop_front();
    std::vector<double> tri(m_dernières.begin(), m_dernières.end());
    std::sort(tri.begin(), tri.end());
    const double hz = tri[tri.size() / 2];
    // Another string struck: the frames of the one before are no guide.
    const NoteEntendue n = noteEntendue(h.hz, m_cordes);
    if (m_lecture.voisée && n.corde != m_lecture.note.corde) {
      m_dernières.assign(1, h.hz);
      m_lecture.hz = h.hz;
    } else {
      m_lecture.hz = hz;
    }
    m_lecture.voisée = true;
    m_lecture.note = noteEntendue(m_lecture.hz, m_cordes);
  } else if (m_lecture.voisée && maintenant - m_dernierSon > kReposMs) {
    m_lecture = {};
    m_dernières.clear();
  } else {
    return;
  }
  update();
  emit lectureChangee();
}

QString EcouteAccordeur::nomNote(int midi) const {
  return m_noms[static_cast<std::size_t>(((midi + 3) % 12 + 12) % 12)] +
         QString::number(midi / 12 - 1);
}

void EcouteAccordeur::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  // A brass ring round a dark face, the wheel's look.
  QRadialGradient laiton(kCentre, 106, kCentre - QPointF(30, 40));
  laiton.setColorAt(0, QColor(0xF2, 0xD2, 0x8A));
  laiton.setColorAt(0.7, QColor(0xB8, 0x86, 0x3B));
  laiton.setColorAt(1, QColor(0x6A, 0x48, 0x1C));
  p.setPen(Qt::NoPen);
  p.setBrush(laiton);
  p.drawEllipse(kCentre, 106, 106);
  QRadialGradient face(kCentre, 96);
  face.setColorAt(0, QColor(30, 22, 17));
  face.setColorAt(0.6, QColor(44, 29, 19));
  face.setColorAt(1, QColor(24, 16, 11));
  p.setBrush(face);
  p.drawEllipse(kCentre, 96, 96);

  const bool voisée = m_lecture.voisée && m_lecture.note.corde > 0;
  const double cents = voisée ? m_lecture.note.centsCorde : 0.0;
  const bool juste = voisée && std::abs(cents) <= kJusteCents;

  // The scale: a mark every 10 cents, longer every 25, the middle the longest.
  for (int c = -50; c <= 50; c += 5) {
    const bool grand = c % 25 == 0;
    const double long_ = c == 0 ? 16 : grand ? 11 : (c % 10 == 0 ? 7 : 4);
    p.setPen(QPen(c == 0 ? kAmbre : kCrème, c == 0 ? 2.5 : 1.2));
    p.drawLine(surLEchelle(c, 86), surLEchelle(c, 86 - long_));
  }
  QFont petit = font();
  petit.setPointSize(7);
  p.setFont(petit);
  p.setPen(kCrème);
  for (int c : {-50, -25, 25, 50}) {
    const QPointF q = surLEchelle(c, 62);
    p.drawText(QRectF(q - QPointF(14, 7), QSizeF(28, 14)), Qt::AlignCenter,
               (c > 0 ? QStringLiteral("+") : QString()) + QString::number(c));
  }
  // The band of the tune at the top of the scale, lit in tune.
  p.setPen(QPen(juste ? kVert : QColor(0x4A, 0x34, 0x22), 5, Qt::SolidLine, Qt::FlatCap));
  p.setBrush(Qt::NoBrush);
  const double r = 91;
  const double demiBande = kDemiAngle * kJusteCents / kPlageCents;
  p.drawArc(QRectF(kCentre - QPointF(r, r), QSizeF(2 * r, 2 * r)),
            static_cast<int>((90 - demiBande) * 16), static_cast<int>(2 * demiBande * 16));

  // The note of the nearest string, its number under it.
  if (voisée) {
    QFont grand = font();
    grand.setPointSize(26);
    grand.setBold(true);
    p.setFont(grand);
    p.setPen(juste ? kVert : kCrème);
    p.drawText(QRectF(40, 118, 140, 44), Qt::AlignCenter,
               nomNote(m_cordes.at(static_cast<std::size_t>(m_lecture.note.corde - 1))));
    QFont moyen = font();
    moyen.setPointSize(9);
    p.setFont(moyen);
    p.setPen(kAmbre);
    const QString signe = cents > 0 ? QStringLiteral("+") : QString();
    p.drawText(QRectF(40, 160, 140, 20), Qt::AlignCenter,
               signe + QString::number(cents, 'f', 1) + QStringLiteral(" ¢"));
  }

  // The needle, pegged at either end beyond the scale.
  const QPointF pointe = surLEchelle(cents, 84);
  const QPointF pied = surLEchelle(cents, -8);
  p.setPen(QPen(voisée ? kAmbre : QColor(0x8A, 0x6A, 0x48), 2.6, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(pied, pointe);
  p.setPen(Qt::NoPen);
  p.setBrush(laiton);
  p.drawEllipse(kCentre, 8, 8);
}

}  // namespace vt
