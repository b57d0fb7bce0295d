\version "2.24.0"
% One staff in 3/4, tempo 140, D minor, with a tie across a bar line.
\score {
  \new Staff \with { midiInstrument = "acoustic guitar (steel)" }
  \relative c' {
    \key d \minor \time 3/4 \tempo 4 = 140
    d4 f a | d2 a4~ | a4 g f | e2. | d2. \bar "|."
  }
  \midi { }
}
