#include "etendue_mesures.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "document/tablature.h"
#include "textes_dialogue.h"

namespace vt {

int finDeSerie(const CVantoroTablature& doc, int depuis, const std::function<int(int)>& valeur) {
  const int v = valeur(depuis);
  int fin = depuis;
  while (fin < doc.getMesureLast() && valeur(fin + 1) == v)
    ++fin;
  return fin;
}

ChoixEtendue::ChoixEtendue(const Textes& t, const CVantoroTablature& doc, int mesure,
                           QWidget* parent, QFormLayout* grille) {
  m_mesure = new QSpinBox(parent);
  m_mesure->setObjectName(QStringLiteral("udMesure"));
  m_mesure->setRange(1, doc.getMesureLast());
  m_mesure->setValue(mesure);
  auto* libellé = new QLabel(t.loadString(529), parent);
  libellé->setBuddy(m_mesure);
  grille->addRow(libellé, m_mesure);

  m_seule = new QRadioButton(t.loadString(576), parent);
  m_seule->setObjectName(QStringLiteral("optSeule"));
  m_suite = new QRadioButton(t.loadString(577), parent);
  m_suite->setObjectName(QStringLiteral("optSuite"));
  auto* groupe = new QButtonGroup(parent);
  groupe->addButton(m_suite);
  groupe->addButton(m_seule);
  // A change usually holds until the next one.
  m_suite->setChecked(true);
  auto* choix = new QVBoxLayout;
  choix->setSpacing(2);
  choix->addWidget(m_suite);
  choix->addWidget(m_seule);
  grille->addRow(QString(), choix);
}

int ChoixEtendue::premiere() const {
  return m_mesure->value();
}

int ChoixEtendue::derniere(const CVantoroTablature& doc,
                           const std::function<int(int)>& valeur) const {
  return m_seule->isChecked() ? premiere() : finDeSerie(doc, premiere(), valeur);
}

}  // namespace vt
