// Draws files of analyses for calc, of rows of all kinds, in the frozen catalogue of the tool's tests.
#pragma once

#include <string>
#include <vector>

#include "tests/support/RandomText.h"

class RandomFile {
 public:
  explicit RandomFile(unsigned seed) : _Random(seed) {}

  /// reusable        what rows may reuse
  /// with_odd_texts  texts with ":" and "|", pictures, and formulas
  std::string Draw(const std::vector<std::string>& reusable, bool with_odd_texts) {
    _OddTexts = with_odd_texts;
    std::string file = "# system: STD\n";
    if (_Random.OneIn(2)) file += "# name: " + Text() + "x\n";
    if (_Random.OneIn(3)) file += "\"# description: " + Quoted() + "x\"\n";
    file +=
        "code,frequency,time type,description,time,seconds,reuse,signature,body,values,value added,"
        "additional description,picture\n";
    for (int left = _Random.Below(12); left > 0; --left) file += Row(reusable) + "\n";
    return file;
  }

 private:
  std::string Row(const std::vector<std::string>& reusable) {
    const std::string texts = "," + Cell() + "," + Cell();
    switch (_Random.Below(7)) {
      case 0:
        return ",,," + Cell("d") + ",,,,,,," + Cell() + texts.substr(1) + PictureCell();
      case 1:
        return "," + Frequency() + "," + TimeType() + "," + Cell() + "," + Number() + ",,,,,," + Cell() + "," + Cell() +
               PictureCell();
      case 2:
        return "OWN," + Frequency() + "," + TimeType() + "," + Cell() + ",," + Number() + ",,,,," + Cell() + "," +
               Cell() + PictureCell();
      case 3:
        if (reusable.empty()) break;
        return "," + Frequency() + ",," + Cell() + ",,," + _Random.AnyOf(reusable) + ",,,," + Cell() + "," + Cell() +
               PictureCell();
      case 4:
        if (!_OddTexts) break;
        return ",,TTU," + Cell() + ",,,,\"x : Real, out Time : Time\",Time = x * 2,x=" + Number() + ",,";
      case 5:
        return "*," + Frequency() + "," + TimeType() + "," + Cell();
      default:
        break;
    }
    return (_Random.OneIn(2) ? "WALK," : "GR5,") + Frequency() + ",," + Cell();
  }

  std::string Frequency() {
    static const std::vector<std::string> frequencies{"", "", "1", "2", "0.5", "0", "1e-3", "3.3333333333333335", "07"};
    return _Random.AnyOf(frequencies);
  }

  std::string TimeType() {
    static const std::vector<std::string> types{"", "TTB", "machine", "TW", "setup", "T**"};
    return _Random.AnyOf(types);
  }

  std::string Number() {
    static const std::vector<std::string> numbers{"0", "1", "0.036", "12.5", "1e-9", "123456789.123", "0.1", "7e10"};
    return _Random.AnyOf(numbers);
  }

  std::string Text() {
    static const std::vector<std::string> plain{"a", "Größe", " ", "5", "€", ",", ";", "'", "#"};
    static const std::vector<std::string> odd{"a", ":", "|", "Größe", " ", "LineData"};
    return _OddTexts && _Random.OneIn(4) ? _Random.Draw(odd, 4) : _Random.Draw(plain, 4);
  }

  std::string Quoted() {
    static const std::vector<std::string> pieces{"\n", "\r\n", "\"\"", "b"};
    return Text() + (_Random.OneIn(2) ? _Random.Draw(pieces, 3) : "");
  }

  std::string Cell(const std::string& ahead = "") { return "\"" + ahead + Quoted() + "\""; }
  std::string PictureCell() { return _OddTexts && _Random.OneIn(6) ? ",p.png" : ","; }

  support::RandomText _Random;
  bool _OddTexts = false;
};
