// Open strings as a guitarist names them: a note and its octave ("E2" in
// English, where middle C is C4; "Mi1" in French, where it is Do3), with the
// MIDI number beside it. Either form can be typed.
#pragma once

#include <QSpinBox>
#include <QString>

namespace vt {

QString nomNoteMidi(int note, int setLang);
// "E2", "e 2", "F#3", "Gb3", "Mi1", "sib2", "Ré#1", "E2 (40)" or "40";
// -1 when the text is no note from 0 to 127.
int lireNoteMidi(const QString& texte, int setLang);

class SpinNote : public QSpinBox {
 public:
  SpinNote(int setLang, QWidget* parent = nullptr);

 protected:
  QString textFromValue(int value) const override;
  int valueFromText(const QString& text) const override;
  QValidator::State validate(QString& text, int& pos) const override;

 private:
  int m_setLang;
};

}  // namespace vt
