#include "fgammes_copier.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "shell/textes.h"
#include "shell/vt.h"
#include "tools/fgammes.h"

namespace vt {

namespace {
constexpr int kDernièreCase = 24;
}  // namespace

FGammesCopier::FGammesCopier(VT& vt, FGammes& gammes, Action action)
    : QDialog(&gammes), m_gammes(gammes), m_quoi(action) {
  setObjectName(QStringLiteral("FGammesCopier"));
  setWindowTitle(vt.loadString(action == Action::Imprimer ? 703 : 704));

  auto* grille = new QGridLayout;
  auto curseur = [&](int ligne, int texte, QSlider*& sld, QLabel*& valeur, const char* nom) {
    auto* libellé = new QLabel(vt.loadString(texte), this);
    sld = new QSlider(Qt::Horizontal, this);
    sld->setObjectName(QString::fromUtf8(nom));
    sld->setRange(0, kDernièreCase);
    sld->setPageStep(1);
    sld->setTickPosition(QSlider::TicksBelow);
    sld->setTickInterval(1);
    sld->setMinimumWidth(300);
    valeur = new QLabel(this);
    valeur->setMinimumWidth(24);
    valeur->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    libellé->setBuddy(sld);
    grille->addWidget(libellé, ligne, 0);
    grille->addWidget(sld, ligne, 1);
    grille->addWidget(valeur, ligne, 2);
  };
  curseur(0, 706, m_sldMin, m_labMin, "sldMin");
  curseur(1, 707, m_sldMax, m_labMax, "sldMax");
  connect(m_sldMin, &QSlider::valueChanged, this, [this] { suitCurseurs(m_sldMin); });
  connect(m_sldMax, &QSlider::valueChanged, this, [this] { suitCurseurs(m_sldMax); });

  auto* boutons = new QDialogButtonBox(this);
  m_action =
      boutons->addButton(sansAccélérateur(vt.loadString(action == Action::Imprimer ? 98 : 97)),
                         QDialogButtonBox::AcceptRole);
  m_action->setObjectName(QStringLiteral("action"));
  m_annuler = boutons->addButton(vt.loadString(708), QDialogButtonBox::RejectRole);
  m_annuler->setObjectName(QStringLiteral("annuler"));
  m_action->setDefault(true);
  connect(m_action, &QPushButton::clicked, this, &FGammesCopier::action_Click);
  connect(m_annuler, &QPushButton::clicked, this, &QDialog::reject);

  auto* colonne = new QVBoxLayout(this);
  colonne->addLayout(grille);
  colonne->addWidget(boutons);
  setPlage(0, 12);
}

void FGammesCopier::setPlage(int min, int max) {
  const QSignalBlocker a(m_sldMin);
  const QSignalBlocker b(m_sldMax);
  m_sldMax->setValue(std::clamp(max, 0, kDernièreCase));
  m_sldMin->setValue(std::clamp(min, 0, m_sldMax->value()));
  m_labMin->setNum(m_sldMin->value());
  m_labMax->setNum(m_sldMax->value());
}

// A slider that would pass the other stops against it.
void FGammesCopier::suitCurseurs(QSlider* bougé) {
  if (m_sldMin->value() > m_sldMax->value()) {
    const QSignalBlocker bloque(bougé);
    bougé->setValue(bougé == m_sldMin ? m_sldMax->value() : m_sldMin->value());
  }
  m_labMin->setNum(m_sldMin->value());
  m_labMax->setNum(m_sldMax->value());
}

void FGammesCopier::action_Click() {
  const int min = m_sldMin->value();
  const int max = m_sldMax->value();
  hide();
  if (m_quoi == Action::Copier) {
    QGuiApplication::clipboard()->setImage(m_gammes.imageGamme(min, max));
  } else {
    m_gammes.printGamme(min, max);
  }
  accept();
}

}  // namespace vt
