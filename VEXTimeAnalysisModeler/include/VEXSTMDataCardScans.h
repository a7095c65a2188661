// The public records of the data cards: one code on a card, one code of a catalogue, one token of a code pattern.
#pragma once

#include "platform/base/KORUnicodeString.h"

/// One code on a data card.
class VEXSTMDataCardScan {
 public:
  KORUnicodeString _Code;
  KORUnicodeString _Label;       // label of the code on the card
  KORUnicodeString _SubLabel;    // second label
  KORUnicodeString _FrameTitle;  // title of the frame that holds the code
  KORUnicodeString _Range;       // range text of the code
  int _Tab = 0;                  // tab of the card
  int _Frame = 0;                // frame on the tab
  int _Row = 0;                  // row in the frame
  int _Column = 0;               // column in the frame
};

/// One code of the catalogue of a motion-time system. Numbers stay the text of the file.
class VEXSTMDataCardEntriesScan {
 public:
  KORUnicodeString _CodeID;       // identifier of the code
  KORUnicodeString _Code;         // the code in upper case, without blanks
  KORUnicodeString _Text;         // description
  KORUnicodeString _Frequency;    // frequency of the code
  KORUnicodeString _Time;         // time formula, "$n$" for the number at pattern position n
  KORUnicodeString _Par1Start;    // lower bound of the number behind the code
  KORUnicodeString _Par1End;      // upper bound of that number
  KORUnicodeString _Pattern;      // the codes that the entry accepts; empty: _Code alone
  KORUnicodeString _TimeType;     // time type
  KORUnicodeString _OptionParID;  // pattern position that stands for the option
  KORUnicodeString _OptionTime;   // time formula that the option adds
  KORUnicodeString _OptionID;     // bit value of the option
  KORUnicodeString _LocalText;    // description in the user's language
  KORUnicodeString _ValueAdded;   // value-added mark
};

/// One token of a compiled code pattern. An array of them ends with a token of type 7.
class VEXSTMDataCardCodeScan {
 public:
  int _Type = 0;            // 0 "(", 1 ")", 2 "|", 3 empty literal, 4 "%", 5 "$", 6 literal, 7 end, 8 unknown
  KORUnicodeString _Text;   // literal text, or the printed number that matched
  int _IntValue = 0;        // number read for an integer parameter
  double _RealValue = 0.0;  // number read for a real parameter
  int _Min = 0;             // bounds of a parameter, both inclusive
  int _Max = 0;
  unsigned char _Matched = 0;  // 1 once the token took part in the match
};
