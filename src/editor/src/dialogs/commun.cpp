#include "commun.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "document/tablature.h"
#include "textes_dialogue.h"

namespace vt {

void storeUndoPiste(CVantoroTablature& doc, int piste) {
  const byt curseur = doc.CurseurPiste();
  doc.setCurseurPiste(static_cast<byt>(piste));
  doc.storeUndo(true);
  doc.setCurseurPiste(curseur);
}

QLabel* ligneErreur(QWidget* parent) {
  auto* l = new QLabel(parent);
  l->setObjectName(QStringLiteral("lblErreur"));
  l->setWordWrap(true);
  l->setStyleSheet(QStringLiteral("color: #b00000;"));
  l->hide();
  return l;
}

void montreErreur(QLabel* ligne, const QString& texte, QWidget* champ) {
  ligne->setText(texte);
  ligne->setVisible(!texte.isEmpty());
  if (champ == nullptr) return;
  champ->setFocus();
  if (auto* e = qobject_cast<QLineEdit*>(champ)) e->selectAll();
}

QDialogButtonBox* boutonsOkAnnuler(QDialog* d, const Textes& t) {
  auto* boutons = new QDialogButtonBox(d);
  QPushButton* ok = boutons->addButton(t.loadString(90), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("btnOk"));
  ok->setDefault(true);
  QPushButton* annuler = boutons->addButton(t.loadString(91), QDialogButtonBox::RejectRole);
  annuler->setObjectName(QStringLiteral("btnAnnuler"));
  QObject::connect(boutons, &QDialogButtonBox::accepted, d, &QDialog::accept);
  QObject::connect(boutons, &QDialogButtonBox::rejected, d, &QDialog::reject);
  return boutons;
}

}  // namespace vt
