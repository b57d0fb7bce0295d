#include "ftab_textes.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QVBoxLayout>

#include "commun.h"
#include "document/tablature.h"
#include "texte_document.h"

namespace vt {

namespace {

QPlainTextEdit* champTexte(QWidget* parent, const QString& nom, const QString& texte) {
  auto* e = new QPlainTextEdit(parent);
  e->setObjectName(nom);
  e->setTabChangesFocus(true);
  e->setPlainText(texte);
  // Four lines in view; a text above a bar is seldom longer.
  const QFontMetrics fm(e->font());
  const auto marge = static_cast<int>(e->document()->documentMargin());
  e->setFixedHeight(fm.lineSpacing() * 4 + 2 * (e->frameWidth() + marge) + 4);
  e->setMinimumWidth(fm.averageCharWidth() * 48);
  return e;
}

}  // namespace

FTabTextes::FTabTextes(const Textes& t, CVantoroTablature& doc, int piste, int mesure, int x,
                       QWidget* parent)
    : QDialog(parent), m_t(t), m_doc(doc), m_piste(piste), m_mesure(mesure), m_x(x) {
  setObjectName(QStringLiteral("FTabTextes"));
  setWindowTitle(t.loadString(546));
  m_initialHaut = lignesDepuisDocument(doc.getMesureTexte(piste, mesure, x, kVrai));
  m_initialBas = lignesDepuisDocument(doc.getMesureTexte(piste, mesure, x, kFaux));

  auto* colonne = new QVBoxLayout(this);
  m_haut = champTexte(this, QStringLiteral("txtHaut"), m_initialHaut);
  m_bas = champTexte(this, QStringLiteral("txtBas"), m_initialBas);
  m_libelleHaut = new QLabel(t.loadString(547), this);
  m_libelleHaut->setBuddy(m_haut);
  m_libelleBas = new QLabel(t.loadString(548), this);
  m_libelleBas->setBuddy(m_bas);
  colonne->addWidget(m_libelleHaut);
  colonne->addWidget(m_haut);
  colonne->addSpacing(6);
  colonne->addWidget(m_libelleBas);
  colonne->addWidget(m_bas);
  m_erreur = ligneErreur(this);
  colonne->addWidget(m_erreur);
  colonne->addWidget(boutonsOkAnnuler(this, t));
  m_haut->setFocus();
}

bool FTabTextes::editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int piste,
                        int mesure, int x) {
  FTabTextes d(t, doc, piste, mesure, x, parent);
  d.exec();
  return d.modifie();
}

bool FTabTextes::ecrire(QPlainTextEdit* champ, const QString& initial, bool haut) {
  const QString texte = champ->toPlainText();
  if (texte == initial) return false;
  const vbool liste = toVbool(haut);
  if (texte.trimmed().isEmpty()) {
    const int n = m_doc.searchMesureTexte(m_piste, m_mesure, m_x, liste);
    if (n == 0) return false;
    m_doc.deleteTexte(m_piste, m_mesure, n, liste);
    return true;
  }
  return m_doc.setMesureTexte(m_piste, m_mesure, m_x, lignesVersDocument(texte), liste);
}

void FTabTextes::accept() {
  // Both texts are checked before either is written.
  const struct {
    QPlainTextEdit* champ;
    QLabel* libelle;
  } champs[] = {{m_haut, m_libelleHaut}, {m_bas, m_libelleBas}};
  for (const auto& c : champs) {
    const QString texte = c.champ->toPlainText();
    const QString refus =
        refusTexte(m_t, nomDeChamp(c.libelle->text()), texte, lignesVersDocument(texte));
    if (!refus.isEmpty()) {
      montreErreur(m_erreur, refus, c.champ);
      return;
    }
  }
  // Blanks typed where there was no text change nothing.
  const auto change = [this](QPlainTextEdit* champ, const QString& initial, bool haut) {
    const QString texte = champ->toPlainText();
    return texte != initial &&
           (!texte.trimmed().isEmpty() ||
            m_doc.searchMesureTexte(m_piste, m_mesure, m_x, toVbool(haut)) != 0);
  };
  if (change(m_haut, m_initialHaut, true) || change(m_bas, m_initialBas, false)) {
    // A new text needs room in its list.
    for (const auto& [champ, haut] : {std::pair{m_haut, true}, std::pair{m_bas, false}}) {
      const vbool liste = toVbool(haut);
      const int compte = haut ? m_doc.getMesureTexteUpLast(m_piste, m_mesure)
                              : m_doc.getMesureTexteDnLast(m_piste, m_mesure);
      if (!champ->toPlainText().trimmed().isEmpty() &&
          m_doc.searchMesureTexte(m_piste, m_mesure, m_x, liste) == 0 && compte >= kMaxEntrees) {
        montreErreur(m_erreur, m_t.loadString(579), champ);
        return;
      }
    }
    storeUndoPiste(m_doc, m_piste);
    m_modifie = ecrire(m_haut, m_initialHaut, true);
    m_modifie = ecrire(m_bas, m_initialBas, false) || m_modifie;
    if (m_modifie) m_doc.modifi = kVrai;
  }
  QDialog::accept();
}

}  // namespace vt
