#include "ftip.h"

#include <QCheckBox>
#include <QFile>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTextStream>
#include <QVBoxLayout>

#include "shell/skin.h"
#include "shell/vt.h"

namespace vt {

FTip::FTip(VT& vt) : QDialog(&vt), m_vt(vt) {
  setObjectName(QStringLiteral("FTip"));
  setWindowTitle(vt.loadString(60));

  auto* image = new QLabel(this);
  image->setPixmap(QPixmap(vt.skinFile(skin::kAstuce)));
  image->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

  auto* titre = new QLabel(vt.loadString(61), this);
  titre->setObjectName(QStringLiteral("labTip"));
  QFont f = titre->font();
  f.setBold(true);
  f.setPointSizeF(f.pointSizeF() * 1.3);
  titre->setFont(f);

  m_texte = new QLabel(this);
  m_texte->setObjectName(QStringLiteral("lblTipText"));
  m_texte->setWordWrap(true);
  m_texte->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  m_texte->setTextFormat(Qt::PlainText);
  m_texte->setMinimumHeight(90);
  QFont ft = m_texte->font();
  ft.setPointSizeF(ft.pointSizeF() * 1.1);
  m_texte->setFont(ft);

  auto* cadre = new QFrame(this);
  cadre->setFrameShape(QFrame::StyledPanel);
  cadre->setAutoFillBackground(true);
  QPalette pal = cadre->palette();
  pal.setColor(QPalette::Window, QColor(0xFF, 0xFB, 0xF0));
  pal.setColor(QPalette::WindowText, QColor(0x2A, 0x1C, 0x12));
  cadre->setPalette(pal);
  auto* dansCadre = new QVBoxLayout(cadre);
  dansCadre->setContentsMargins(14, 12, 14, 12);
  dansCadre->addWidget(titre);
  dansCadre->addWidget(m_texte, 1);

  auto* haut = new QHBoxLayout;
  haut->addWidget(image);
  haut->addWidget(cadre, 1);

  m_chk = new QCheckBox(vt.loadString(62), this);
  m_chk->setObjectName(QStringLiteral("chkLoadTipsAtStartup"));
  m_chk->setChecked(vt.settings().setTipsStartup != 0);
  connect(m_chk, &QCheckBox::clicked, this,
          [this](bool on) { m_vt.settings().setTipsStartup = on ? 1 : 0; });
  m_suivante = new QPushButton(vt.loadString(63), this);
  m_suivante->setObjectName(QStringLiteral("cmdNextTip"));
  connect(m_suivante, &QPushButton::clicked, this, &FTip::NextTip);
  auto* ok = new QPushButton(vt.loadString(90), this);
  ok->setObjectName(QStringLiteral("cmdOK"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);

  auto* bas = new QHBoxLayout;
  bas->addWidget(m_chk);
  bas->addStretch(1);
  bas->addWidget(m_suivante);
  bas->addWidget(ok);

  auto* tout = new QVBoxLayout(this);
  tout->addLayout(haut, 1);
  tout->addLayout(bas);
  resize(520, 230);

  const QString fichier = vt.setLang() == kLangFrançais ? QStringLiteral("tipofday.ini")
                                                        : QStringLiteral("tipofdayen.ini");
  LoadTips(vt.strAppPath() + fichier);
  NextTip();
}

void FTip::LoadTips(const QString& fichier) {
  m_tips.clear();
  QFile f(fichier);
  if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return;
  QTextStream flux(&f);
  flux.setEncoding(QStringConverter::Utf8);
  while (!flux.atEnd()) {
    const QString ligne = flux.readLine();
    if (!ligne.trimmed().isEmpty()) m_tips.append(ligne.trimmed());
  }
}

void FTip::DisplayCurrentTip() {
  m_texte->setText(m_courante >= 0 && m_courante < m_tips.size() ? m_tips[m_courante] : QString());
}

void FTip::NextTip() {
  const int n = static_cast<int>(m_tips.size());
  if (n == 0) {
    m_courante = -1;
  } else if (n == 1) {
    m_courante = 0;
  } else {
    int suivante = m_courante;
    while (suivante == m_courante)
      suivante = QRandomGenerator::global()->bounded(n);
    m_courante = suivante;
  }
  DisplayCurrentTip();
}

QString FTip::texteAffiché() const {
  return m_texte->text();
}

void FTip::showEvent(QShowEvent* e) {
  QDialog::showEvent(e);
  m_curseur.rendre();
}

}  // namespace vt
