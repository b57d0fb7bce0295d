// How the dialogs look in both languages (VT_DIALOGS_PNG: a folder to save each picture in).
#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <functional>
#include <memory>

#include "dialogs/dialogs.h"
#include "dialogs/pic_accord.h"
#include "dialogs_support.h"
#include "formats/catalogue.h"

namespace vt::essai {
namespace {

bool controle(const QWidget* w) {
  return qobject_cast<const QLabel*>(w) || qobject_cast<const QAbstractButton*>(w) ||
         qobject_cast<const QAbstractSpinBox*>(w) || qobject_cast<const QComboBox*>(w) ||
         qobject_cast<const QLineEdit*>(w) || qobject_cast<const QPlainTextEdit*>(w) ||
         qobject_cast<const QListWidget*>(w) || qobject_cast<const PicAccord*>(w);
}

// Captions cut short, and controls that overlap a sibling.
void verifie(QWidget* fenetre, const QString& nom) {
  for (QWidget* w : fenetre->findChildren<QWidget*>()) {
    if (!w->isVisible() || !controle(w)) continue;
    const auto* l = qobject_cast<const QLabel*>(w);
    if ((l != nullptr && !l->wordWrap() && !l->text().isEmpty()) ||
        qobject_cast<const QAbstractButton*>(w) != nullptr) {
      EXPECT_GE(w->width(), w->sizeHint().width())
          << nom.toStdString() << ": " << w->metaObject()->className() << " \""
          << (l ? l->text() : static_cast<QAbstractButton*>(w)->text()).toStdString()
          << "\" is cut";
    }
    if (qobject_cast<const QComboBox*>(w) != nullptr) {
      EXPECT_GE(w->width(), w->minimumSizeHint().width()) << nom.toStdString();
    }
  }
  for (QWidget* parent : fenetre->findChildren<QWidget*>()) {
    QList<QWidget*> frères;
    for (QObject* o : parent->children()) {
      auto* w = qobject_cast<QWidget*>(o);
      if (w != nullptr && w->isVisible() && controle(w)) frères << w;
    }
    for (qsizetype i = 0; i < frères.size(); ++i)
      for (qsizetype j = i + 1; j < frères.size(); ++j)
        EXPECT_FALSE(frères[i]->geometry().intersects(frères[j]->geometry()))
            << nom.toStdString() << ": " << frères[i]->objectName().toStdString() << " / "
            << frères[j]->objectName().toStdString();
  }
}

void photographie(QWidget* fenetre, const QString& nom) {
  const QString dossier = qEnvironmentVariable("VT_DIALOGS_PNG");
  if (dossier.isEmpty()) return;
  QDir().mkpath(dossier);
  fenetre->grab().save(dossier + QLatin1Char('/') + nom + QStringLiteral(".png"));
}

class Apparence : public ::testing::TestWithParam<int> {
 protected:
  Textes t{GetParam()};
  QString langue = GetParam() == kLangFrançais ? QStringLiteral("fr") : QStringLiteral("en");
  CatalogueGuitares catalogue = CatalogueGuitares::fromText(kGuitareEtBasse);
  CVantoroTablature doc = document(2, 3);

  void regarde(QWidget* w, const QString& nom) {
    w->show();
    QCoreApplication::processEvents();
    verifie(w, nom + '-' + langue);
    photographie(w, nom + '-' + langue);
  }
};

TEST_P(Apparence, EveryDialogShowsItsCaptionsWhole) {
  doc.setNoteWhole(1, 2, 6, 150, 3, 24);
  doc.setMesureTempo(2, 0, 90);
  doc.setMesureTexte(1, 2, 0, "Intro\\nsoft", kVrai);
  doc.setMesureAccord(1, 1, doc.addandplaceMesureAccord(1, 1, 0), "C", OneBased<byt>(6, 0));
  doc.setMesureAccord(1, 2, doc.addandplaceMesureAccord(1, 2, 0), "G", OneBased<byt>(6, 3));
  {
    FTabProprietes d(t, catalogue, guitareSixCordes(), doc, FTabProprietes::Onglet::Morceau, 1);
    regarde(&d, "proprietes-morceau");
    enfant<QTabWidget>(&d, "onglets")->setCurrentIndex(1);
    enfant<QAbstractSpinBox>(&d, "udCordes")->stepDown();  // the warning of lost notes
    regarde(&d, "proprietes-pistes");
  }
  {
    FTabGetTimeSignature d(t, doc, 2);
    enfant<QAbstractSpinBox>(&d, "udHaut")->stepDown();  // 3/4: the warning of a cut
    regarde(&d, "signature");
  }
  std::unique_ptr<QWidget> autres[] = {std::make_unique<FTabGetKeySignature>(t, doc, 1),
                                       std::make_unique<FTabMesure>(t, doc, 1),
                                       std::make_unique<FTabTempo>(t, doc, 2, 0),
                                       std::make_unique<FTabTextes>(t, doc, 1, 2, 0),
                                       std::make_unique<FTabAccord>(t, doc, 1, 1, 0),
                                       std::make_unique<fTabDrums>(t)};
  for (auto& w : autres)
    regarde(w.get(), w->objectName());
}

INSTANTIATE_TEST_SUITE_P(Langues, Apparence, ::testing::Values(kLangFrançais, kLangAnglais),
                         [](const ::testing::TestParamInfo<int>& p) {
                           return std::string(p.param == kLangFrançais ? "Francais" : "Anglais");
                         });

}  // namespace
}  // namespace vt::essai
