#include "habillage_outil.h"

#include <QLabel>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QRegularExpression>

#include "controls/picture_button.h"
#include "shell/skin.h"
#include "shell/vt.h"

namespace vt {

namespace {

constexpr int kToutesNotesOff = 123;

// The resting picture follows the last frame of its sequence: "copier0017"
// rests after frames 0 to 16.
int dernièreFrame(int imageRepos) {
  static const QRegularExpression chiffres(QStringLiteral("(\\d\\d)$"));
  const auto m = chiffres.match(skinName(imageRepos));
  return m.hasMatch() ? m.captured(1).toInt() - 1 : -1;
}

}  // namespace

VTPictureButton* créeBoutonSkin(QWidget* parent, const QRect& boîte) {
  auto* b = new VTPictureButton(parent);
  b->setGeometry(boîte);
  return b;
}

void habilleBouton(VTPictureButton* b, const VT& vt, const BoutonSkin& images) {
  b->setPictureOff(QPixmap(vt.skinFile(images.repos)));
  b->setPictureOver(QPixmap(vt.skinFile(images.survol)));
  b->setPictureOn(QPixmap(vt.skinFile(images.survol)));
  b->setAnimationFolder(vt.skinFolder());
  if (images.animation) {
    b->setAnimatedPicturePrefix(QString::fromUtf8(images.animation));
    b->setLastFrame(dernièreFrame(images.repos));
    b->setAnimated(true);
  }
}

void habilleListe(QListWidget* l) {
  l->setFrameShape(QFrame::NoFrame);
  l->setStyleSheet(
      QStringLiteral("QListWidget { background: transparent; color: %1; }"
                     "QListWidget::item { padding: 1px 2px; }"
                     "QListWidget::item:selected { background: %2; color: #241A13; }"
                     "QScrollBar:vertical { background: #241A13; width: 10px; }"
                     "QScrollBar::handle:vertical { background: #6B4E33;"
                     " border-radius: 4px; min-height: 20px; }"
                     "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
                     "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
          .arg(kCrème.name(), kAmbre.name()));
  l->viewport()->setAutoFillBackground(false);
}

void habilleTexte(QLabel* l, bool gras) {
  QPalette pal = l->palette();
  pal.setColor(QPalette::WindowText, kCrème);
  l->setPalette(pal);
  if (gras) {
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
  }
}

QLabel* créeTexte(QWidget* parent, const QString& nom, const QRect& boîte, int points, bool gras) {
  auto* l = new QLabel(parent);
  l->setObjectName(nom);
  l->setGeometry(boîte);
  l->setAttribute(Qt::WA_TranslucentBackground);
  QFont f = l->font();
  f.setPointSize(points);
  l->setFont(f);
  habilleTexte(l, gras);
  return l;
}

void toutesNotesOff(VT& vt) {
  vt.son().midiController(kToutesNotesOff, 0, vt.settings().setMIDIchannel);
}

void fermeOutil(QWidget* fenêtre) {
  if (auto* cadre = qobject_cast<QMdiSubWindow*>(fenêtre->parentWidget())) {
    cadre->close();
  } else {
    fenêtre->close();
  }
}

}  // namespace vt
