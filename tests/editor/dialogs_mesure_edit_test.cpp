// The bar range dialog of the bar commands: its title by mode, where it starts,
// how far it lets the range reach, the track choice, and what OK and Cancel hand back.
#include <QApplication>
#include <QGroupBox>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <functional>

#include "dialogs/dialogs.h"
#include "dialogs_support.h"

namespace vt::essai {
namespace {

// Runs `geste` on the dialog once it is shown modally.
void quandOuvert(const std::function<void(FTabMesureEdit&)>& geste) {
  QTimer::singleShot(0, [geste] {
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* d = qobject_cast<FTabMesureEdit*>(w); d != nullptr && d->isVisible()) {
        geste(*d);
        return;
      }
    ADD_FAILURE() << "the dialog was not shown";
  });
}

TEST(MesureEdit, StartsAtTheCursorsBarAndStaysInsideTheDocument) {
  CVantoroTablature doc = document(2, 10);
  doc.setCurseurMesure(7);
  for (int mode : {2, 3, 4}) {
    FTabMesureEdit d(kAnglais, doc, mode);
    auto* de = enfant<QSpinBox>(&d, "udMesureFrom");
    auto* nombre = enfant<QSpinBox>(&d, "udMesureNumber");
    EXPECT_EQ(de->value(), 7);
    EXPECT_EQ(de->minimum(), 1);
    EXPECT_EQ(de->maximum(), 10);
    EXPECT_EQ(nombre->value(), 1);
    EXPECT_EQ(nombre->maximum(), 4) << mode;
    nombre->setValue(4);
    de->setValue(9);  // two bars left: the number follows
    EXPECT_EQ(nombre->maximum(), 2);
    EXPECT_EQ(nombre->value(), 2);
    de->setValue(1);
    EXPECT_EQ(nombre->maximum(), 10);
    nombre->setValue(12);
    EXPECT_EQ(d.positions(), (PositionsMesures{1, 10, false}));
  }
  // Inserting reaches past the end.
  FTabMesureEdit d(kAnglais, doc, FTabMesureEdit::kInserer);
  auto* nombre = enfant<QSpinBox>(&d, "udMesureNumber");
  enfant<QSpinBox>(&d, "udMesureFrom")->setValue(10);
  nombre->setValue(500);
  EXPECT_EQ(nombre->maximum(), FTabMesureEdit::kMaxInsertion);
  EXPECT_EQ(d.positions(), (PositionsMesures{10, 500, false}));
}

TEST(MesureEdit, TheTrackChoiceAndCopyWhichTakesTheCurrentTrack) {
  const CVantoroTablature doc = document(3, 4);
  FTabMesureEdit d(kAnglais, doc, FTabMesureEdit::kCouper);
  auto* courante = enfant<QRadioButton>(&d, "optPiste_0");
  auto* toutes = enfant<QRadioButton>(&d, "optPiste_1");
  EXPECT_EQ(courante->text(), "The current track");
  EXPECT_TRUE(courante->isChecked());
  EXPECT_TRUE(toutes->isEnabled());
  toutes->setChecked(true);
  EXPECT_FALSE(courante->isChecked());
  EXPECT_TRUE(d.positions().toutesPistes);

  FTabMesureEdit c(kAnglais, doc, FTabMesureEdit::kCopier);
  auto* toutesCopie = enfant<QRadioButton>(&c, "optPiste_1");
  EXPECT_FALSE(toutesCopie->isEnabled());
  toutesCopie->setChecked(true);
  EXPECT_FALSE(c.positions().toutesPistes);
}

TEST(MesureEdit, OkHandsBackTheRangeCancelAndUnknownModesNothing) {
  CVantoroTablature doc = document(2, 6);
  doc.setCurseurMesure(3);
  const CVantoroTablature avant = doc;
  PositionsMesures out{9, 9, false};

  quandOuvert([](FTabMesureEdit& d) {
    enfant<QSpinBox>(&d, "udMesureNumber")->setValue(2);
    enfant<QRadioButton>(&d, "optPiste_1")->setChecked(true);
    ok(d);
  });
  EXPECT_TRUE(FTabMesureEdit::getMesurePositions(nullptr, kAnglais, doc, 4, out));
  EXPECT_EQ(out, (PositionsMesures{3, 2, true}));

  quandOuvert([](FTabMesureEdit& d) {
    enfant<QSpinBox>(&d, "udMesureFrom")->setValue(1);
    annuler(d);
  });
  EXPECT_FALSE(FTabMesureEdit::getMesurePositions(nullptr, kAnglais, doc, 1, out));
  EXPECT_EQ(out, (PositionsMesures{3, 2, true}));

  EXPECT_FALSE(FTabMesureEdit::getMesurePositions(nullptr, kAnglais, doc, 0, out));
  EXPECT_FALSE(FTabMesureEdit::getMesurePositions(nullptr, kAnglais, doc, 5, out));
  EXPECT_EQ(out, (PositionsMesures{3, 2, true}));
  // The dialog only reads.
  EXPECT_TRUE(doc == avant);
}

}  // namespace
}  // namespace vt::essai
