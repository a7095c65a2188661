// The signature of a formula, read from its text.
//
//   signature = [ argument { "," argument } ]
//   argument  = [ "out" ] name ":" type
//   name      = ( letter | "_" ) { letter | digit | "_" }
//   type      = "Integer" | "Real" | "String" | "Time" | "Length" | "Mass" | "Angle" | "Number"
//
// Blanks, tabs and line ends may stand between all of them, and must stand behind "out". Letters are those of ASCII,
// small and capital ones differ. No two arguments have the same name, and none is called like a word of the language
// of bodies (`end`, `for`, `_ENV` and so on). An argument with "out" is an output, the others are inputs; an argument
// may be called "out".
//
//   x : Real, n : Integer, out Time : Time, out Frequency : Real, out Description : String
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORCke.h"
#include "platform/knowledge/KORParmDictionary.h"

/// One argument of a formula.
struct KORCkeArgument {
  KORUnicodeString Name;
  KORUnicodeString TypeName;
  int Mode = KORCke::InputMode;
  KORCke::ValueKind Kind = KORCke::ValueKind::Real;
  const KORCkeMagnitude* Magnitude = nullptr;  // null for what is none
};

/// The arguments that a signature names, or why it can't be read.
struct KORCkeFormula {
  std::vector<KORCkeArgument> Arguments;
  std::string Problem;  // for people; empty if the signature could be read

  bool IsReadable() const { return Problem.empty(); }
  int CountOutputs() const;

  /// Reads a signature of any length; one longer than korcke::LongestSignature, or with more arguments than
  /// korcke::MostArguments, can't be read.
  static KORCkeFormula Read(std::string_view signature);
};
