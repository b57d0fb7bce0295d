#include "flang.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

#include "formats/string_table.h"
#include "shell/textes.h"

namespace vt {

namespace {

// The two flags, drawn rather than shipped.
QPixmap drapeau(bool français) {
  const QSize taille(36, 24);
  QPixmap p(taille);
  QPainter g(&p);
  if (français) {
    g.fillRect(0, 0, 12, 24, QColor(0, 35, 149));
    g.fillRect(12, 0, 12, 24, Qt::white);
    g.fillRect(24, 0, 12, 24, QColor(237, 41, 57));
  } else {
    const QColor bleu(1, 33, 105);
    const QColor rouge(200, 16, 46);
    g.setRenderHint(QPainter::Antialiasing);
    g.fillRect(p.rect(), bleu);
    g.setPen(QPen(Qt::white, 5));
    g.drawLine(0, 0, 36, 24);
    g.drawLine(36, 0, 0, 24);
    g.setPen(QPen(rouge, 2));
    g.drawLine(0, 0, 36, 24);
    g.drawLine(36, 0, 0, 24);
    g.setRenderHint(QPainter::Antialiasing, false);
    g.fillRect(14, 0, 8, 24, Qt::white);
    g.fillRect(0, 8, 36, 8, Qt::white);
    g.fillRect(16, 0, 4, 24, rouge);
    g.fillRect(0, 10, 36, 4, rouge);
  }
  g.setRenderHint(QPainter::Antialiasing, false);
  g.setPen(QColor(0, 0, 0, 90));
  g.drawRect(0, 0, taille.width() - 1, taille.height() - 1);
  return p;
}

}  // namespace

FLang::FLang(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("FLang"));
  // Both texts are written in both languages: no language is chosen yet.
  setWindowTitle(qLoadString(71, kLangAnglais));
  auto* grille = new QGridLayout(this);
  grille->setContentsMargins(18, 16, 18, 12);
  grille->setHorizontalSpacing(10);
  grille->setVerticalSpacing(10);
  auto* question = new QLabel(qLoadString(70, kLangAnglais), this);
  QFont gras = question->font();
  gras.setBold(true);
  question->setFont(gras);
  grille->addWidget(question, 0, 0, 1, 2, Qt::AlignLeft);

  m_fr = new QRadioButton(qLoadString(15, kLangFrançais), this);
  m_en = new QRadioButton(qLoadString(16, kLangAnglais), this);
  m_fr->setObjectName(QStringLiteral("optLang0"));
  m_en->setObjectName(QStringLiteral("optLang1"));
  auto* fra = new QLabel(this);
  fra->setObjectName(QStringLiteral("fra"));
  fra->setPixmap(drapeau(true));
  auto* eng = new QLabel(this);
  eng->setPixmap(drapeau(false));
  grille->addWidget(fra, 1, 0);
  grille->addWidget(m_fr, 1, 1);
  grille->addWidget(eng, 2, 0);
  grille->addWidget(m_en, 2, 1);
  grille->setColumnStretch(1, 1);
  // Clicking a flag chooses its language.
  fra->installEventFilter(this);
  eng->installEventFilter(this);
  m_drapeaux = {fra, eng};

  auto* boutons = new QDialogButtonBox(this);
  QPushButton* ok = boutons->addButton(qLoadString(90, kLangAnglais), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("bnOK"));
  ok->setDefault(true);
  connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  grille->addWidget(boutons, 3, 0, 1, 2);

  // The system's language is the likely answer.
  const bool français = QLocale::system().language() == QLocale::French;
  (français ? m_fr : m_en)->setChecked(true);
  setFixedSize(sizeHint());
}

bool FLang::eventFilter(QObject* o, QEvent* e) {
  if (e->type() == QEvent::MouseButtonPress) {
    if (o == m_drapeaux[0]) m_fr->setChecked(true);
    if (o == m_drapeaux[1]) m_en->setChecked(true);
  }
  return QDialog::eventFilter(o, e);
}

i16 FLang::choix() const {
  return m_fr->isChecked() ? static_cast<i16>(kLangFrançais) : static_cast<i16>(kLangAnglais);
}

i16 FLang::getLang() {
  FLang dialogue;
  dialogue.exec();
  // Closing the dialog without OK keeps the choice it shows.
  return dialogue.choix();
}

}  // namespace vt
