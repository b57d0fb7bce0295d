// What every document dialog does the same way: the undo snapshot before a
// change, the line that tells why OK was refused, the OK and Cancel buttons.
#pragma once

#include <QString>

class QDialog;
class QDialogButtonBox;
class QLabel;
class QWidget;

namespace vt {

class CVantoroTablature;
struct Textes;

// A snapshot of track `piste` for undo, whichever track the cursor is on.
void storeUndoPiste(CVantoroTablature& doc, int piste);

// A red line, hidden while empty, that says why the dialog is still open.
QLabel* ligneErreur(QWidget* parent);
void montreErreur(QLabel* ligne, const QString& texte, QWidget* champ);

// OK (objectName "btnOk", the default button) and Cancel ("btnAnnuler"),
// wired to accept and reject.
QDialogButtonBox* boutonsOkAnnuler(QDialog* d, const Textes& t);

}  // namespace vt
