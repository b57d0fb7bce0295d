#include "note_midi.h"

#include <QFontMetrics>
#include <QRegularExpression>
#include <algorithm>
#include <array>

#include "formats/string_table.h"

namespace vt {

namespace {

// Pitch classes from C.
constexpr std::array<const char*, 12> kAnglais = {"C",  "C#", "D",  "D#", "E",  "F",
                                                  "F#", "G",  "G#", "A",  "A#", "B"};
constexpr std::array<const char*, 12> kFrancais = {"Do",  "Do#", "Ré",   "Ré#", "Mi",  "Fa",
                                                   "Fa#", "Sol", "Sol#", "La",  "La#", "Si"};

// The octave of middle C (MIDI 60) in each language's custom.
int octaveDuDoCentral(int setLang) {
  return setLang == kLangFrançais ? 3 : 4;
}

// The pitch class of a natural note's name in either language, -1 if none.
int classeNaturelle(const QString& nom) {
  static const struct {
    const char* nom;
    int classe;
  } noms[] = {{"c", 0},  {"d", 2},  {"e", 4},   {"f", 5},  {"g", 7},
              {"a", 9},  {"b", 11}, {"do", 0},  {"ut", 0}, {"re", 2},
              {"mi", 4}, {"fa", 5}, {"sol", 7}, {"la", 9}, {"si", 11}};
  QString n = nom.toLower();
  n.replace(QChar(0xE9), QLatin1Char('e'));  // "ré"
  for (const auto& e : noms)
    if (n == QLatin1String(e.nom)) return e.classe;
  return -1;
}

}  // namespace

QString nomNoteMidi(int note, int setLang) {
  const auto& noms = setLang == kLangFrançais ? kFrancais : kAnglais;
  const int octave = note / 12 - 5 + octaveDuDoCentral(setLang);
  return QString::fromUtf8(noms[static_cast<std::size_t>(note % 12)]) + QString::number(octave);
}

int lireNoteMidi(const QString& texte, int setLang) {
  QString t = texte.trimmed();
  // "E2 (40)": the name decides, as the user may have typed over it.
  const qsizetype parenthese = t.indexOf(QLatin1Char('('));
  if (parenthese > 0) t = t.left(parenthese).trimmed();
  bool nombre = false;
  const int n = t.toInt(&nombre);
  if (nombre) return n >= 0 && n <= 127 ? n : -1;

  static const QRegularExpression forme(
      QStringLiteral("^([A-Za-z\\x{E9}\\x{C9}]+?)\\s*([#b\\x{266F}\\x{266D}]?)\\s*(-?\\d+)$"));
  const auto m = forme.match(t);
  if (!m.hasMatch()) return -1;
  int classe = classeNaturelle(m.captured(1));
  QString alteration = m.captured(2);
  // "Bb3" reads as B and a flat, "sib2" as si and a flat.
  if (classe < 0 && alteration.isEmpty() && m.captured(1).endsWith(QLatin1Char('b'))) {
    classe = classeNaturelle(m.captured(1).chopped(1));
    alteration = QStringLiteral("b");
  }
  if (classe < 0) return -1;
  if (alteration == QLatin1String("#") || alteration == QChar(0x266F)) ++classe;
  if (alteration == QLatin1String("b") || alteration == QChar(0x266D)) --classe;
  const int octave = m.captured(3).toInt();
  const int note = (octave + 5 - octaveDuDoCentral(setLang)) * 12 + classe;
  return note >= 0 && note <= 127 ? note : -1;
}

SpinNote::SpinNote(int setLang, QWidget* parent) : QSpinBox(parent), m_setLang(setLang) {
  setRange(0, 127);
  // The longest name ("Sol#-1 (8)") sets the width, not those of 0 and 127.
  const QFontMetrics fm(font());
  int plusLarge = 0;
  for (int n = 0; n <= 127; ++n)
    plusLarge = std::max(plusLarge, fm.horizontalAdvance(textFromValue(n)));
  const int bornes =
      std::max(fm.horizontalAdvance(textFromValue(0)), fm.horizontalAdvance(textFromValue(127)));
  setMinimumWidth(QSpinBox::sizeHint().width() + plusLarge - bornes);
}

QString SpinNote::textFromValue(int value) const {
  return QStringLiteral("%1 (%2)").arg(nomNoteMidi(value, m_setLang)).arg(value);
}

int SpinNote::valueFromText(const QString& text) const {
  const int n = lireNoteMidi(text, m_setLang);
  return n >= 0 ? n : value();
}

QValidator::State SpinNote::validate(QString& text, int&) const {
  // Anything short may still become a note while it is typed.
  if (lireNoteMidi(text, m_setLang) >= 0) return QValidator::Acceptable;
  return text.size() <= 12 ? QValidator::Intermediate : QValidator::Invalid;
}

}  // namespace vt
