\version "2.24.0"
% Two staves (a melody with a chord, and a bass), G major, 4/4,
% tempo 100 then 80 from bar 3.
\header { title = "Duet" }
melody = \relative c'' {
  \key g \major \time 4/4 \tempo 4 = 100
  g4 a b c | d2 <g, b d>2 |
  \tempo 4 = 80
  e'8 d c b a4 g | g1 \bar "|."
}
bass = \relative c {
  \clef bass \key g \major \time 4/4
  g2 d' | g,2 b | c4 d e d | g,1
}
\score {
  <<
    \new Staff \with { midiInstrument = "acoustic guitar (nylon)" } \melody
    \new Staff \with { midiInstrument = "electric bass (finger)" } \bass
  >>
  \midi { }
}
