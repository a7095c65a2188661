// Draws formulas with their signature, their body and one parameter per argument.
//
// A signature is a list of arguments `name : Type`, outputs marked by "out", joined by commas. A body assigns outputs
// by name; inputs stand for their values. Broken formulas have a signature or a body that can't be read, or a body that
// fails when it runs.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/oracle/CalculationOracle.h"
#include "tests/support/RandomText.h"

namespace support {

/// What may occur in a drawn formula.
struct RandomFormulaOptions {
  bool odd_numbers = false;
  bool broken_formulas = true;
  bool unknown_magnitudes = false;
};

class RandomFormula {
 public:
  /// The source of chance stays the caller's and must live on.
  explicit RandomFormula(RandomText& random) : _Random(random) {}

  /// The parameters of one formula occurrence; kind, owner and row come from `common`.
  oracle::FormulaParameters Draw(const oracle::FormulaParameter& common, const RandomFormulaOptions& options) {
    _Options = options;
    DrawArguments();
    oracle::FormulaParameter parameter = common;
    parameter.signature = Signature();
    parameter.body = Body();
    oracle::FormulaParameters parameters;
    for (const ArgumentText& argument : _Arguments) {
      // The name of a parameter is that of its argument, seldom another.
      parameter.name = _Random.OneIn(20) ? OutputName() : argument.name;
      parameter.value_type = _Random.OneIn(20) ? AnyType() : argument.type;
      if (options.unknown_magnitudes && _Random.OneIn(12)) parameter.value_type = _Random.OneIn(2) ? "Colour" : "";
      parameter.value_text = Value(parameter.value_type);
      parameters.emplace_back(parameter);
    }
    return parameters;
  }

 private:
  struct ArgumentText {
    std::string name;
    std::string type;
    bool output = false;
  };

  void DrawArguments() {
    static const std::array<ArgumentText, 8> inputs = {{{"x", "Real"},
                                                        {"n", "Integer"},
                                                        {"s", "String"},
                                                        {"t", "Time"},
                                                        {"l", "Length"},
                                                        {"m", "Mass"},
                                                        {"a", "Angle"},
                                                        {"k", "Number"}}};
    _Arguments.clear();
    for (const ArgumentText& input : inputs) {
      if (_Random.OneIn(5)) _Arguments.push_back(input);
    }
    // The time is an output mostly, an input seldom, and sometimes no argument at all.
    if (!_Random.OneIn(5)) _Arguments.push_back({"Time", _Random.OneIn(4) ? "Real" : "Time", !_Random.OneIn(12)});
    if (_Random.OneIn(2)) _Arguments.push_back({"Frequency", "Real", true});
    if (_Random.OneIn(3)) _Arguments.push_back({"Description", "String", true});
    if (_Arguments.empty()) _Arguments.push_back({"Frequency", "Real", true});
    for (std::size_t left = _Arguments.size(); left > 1; --left) {
      std::swap(_Arguments[left - 1], _Arguments[static_cast<std::size_t>(_Random.Below(static_cast<int>(left)))]);
    }
  }

  std::string Signature() {
    static const std::array<std::string, 3> broken = {"n Integer", "x : Colour", "out Time : Time,,"};
    if (_Options.broken_formulas && _Random.OneIn(60)) return _Random.AnyOf(broken);
    std::string signature;
    for (const ArgumentText& argument : _Arguments) {
      if (!signature.empty()) signature += ", ";
      signature += (argument.output ? "out " : "") + argument.name + " : " + argument.type;
    }
    return signature;
  }

  std::string Body() {
    std::string body;
    for (const ArgumentText& argument : _Arguments) {
      if (!argument.output || _Random.OneIn(12)) continue;
      AppendStatement(body, argument.name + " = " + (argument.type == "String" ? Text() : Number()));
    }
    if (_Options.broken_formulas && _Random.OneIn(24)) AppendStatement(body, "Time = nil + 1");
    if (_Options.broken_formulas && _Random.OneIn(60)) AppendStatement(body, "Time = = 1");
    return body;
  }

  static void AppendStatement(std::string& body, const std::string& statement) {
    if (!body.empty()) body += "; ";
    body += statement;
  }

  // A constant, or the inputs that are numbers, in sums and products.
  std::string Number() {
    static const std::array<std::string, 10> constants = {"0",   "0",    "-1",  "-1",  "2.5",
                                                          "0.1", "-0.5", "1e3", "3.0", "-1.0000001"};
    if (_Random.OneIn(2)) return _Random.AnyOf(constants);
    std::string number;
    for (const ArgumentText& argument : _Arguments) {
      if (argument.output || argument.type == "String" || _Random.OneIn(3)) continue;
      if (!number.empty()) number += " + ";
      number += _Random.OneIn(2) ? argument.name : "0.5*" + argument.name;
    }
    return number.empty() ? _Random.AnyOf(constants) : number;
  }

  std::string Text() {
    static const std::array<std::string, 3> constants = {"\"reach\"", "\"two hands\"", "\"\""};
    for (const ArgumentText& argument : _Arguments) {
      if (argument.name == "s" && _Random.OneIn(2)) return argument.name;
    }
    return _Random.AnyOf(constants);
  }

  std::string Value(const std::string& type) {
    static const std::array<std::string, 8> usual = {"0", "3", "2.5", "-4", "-1", "1e1", " 7", "0.25"};
    static const std::array<std::string, 6> strange = {"", "abc", "5x", "0x10", ".", "99999999999"};
    static const std::array<std::string, 4> odd = {"nan", "inf", "-inf", "1e999"};
    if (type == "String" && _Random.OneIn(2)) return "walk";
    if (_Options.odd_numbers && _Random.OneIn(8)) return _Random.AnyOf(odd);
    return _Random.OneIn(8) ? _Random.AnyOf(strange) : _Random.AnyOf(usual);
  }

  std::string OutputName() {
    static const std::array<std::string, 4> names = {"Time", "Frequency", "Description", "other"};
    return _Random.AnyOf(names);
  }

  std::string AnyType() {
    static const std::array<std::string, 8> types = {"Integer", "Real", "String", "Time",
                                                     "Length",  "Mass", "Angle",  "Number"};
    return _Random.AnyOf(types);
  }

  RandomText& _Random;
  RandomFormulaOptions _Options;
  std::vector<ArgumentText> _Arguments;
};

}  // namespace support
