// A locale for the time of a test, on the calling thread alone.
#pragma once

#include <locale.h>
#include <clocale>
#include <string>

namespace formulatest {

/// Puts a locale in force on this thread until the end of the scope. A test asks IsInForce first and fails without it.
class ScopedLocale {
 public:
  explicit ScopedLocale(const char* name) : _Locale(newlocale(LC_ALL_MASK, name, nullptr)) {
    if (_Locale != nullptr) _Before = uselocale(_Locale);
  }
  ~ScopedLocale() {
    if (_Locale == nullptr) return;
    uselocale(_Before);
    freelocale(_Locale);
  }
  ScopedLocale(const ScopedLocale&) = delete;
  ScopedLocale& operator=(const ScopedLocale&) = delete;

  /// True if the locale could be had and writes `decimal_character` between the whole part and the fraction.
  bool IsInForce(const std::string& decimal_character = ",") const {
    return _Locale != nullptr && localeconv()->decimal_point == decimal_character;
  }

 private:
  locale_t _Locale;
  locale_t _Before = nullptr;
};

/// The same for the whole process, for what a program does that calls setlocale at its start.
class ScopedProcessLocale {
 public:
  explicit ScopedProcessLocale(const char* name)
      : _Before(std::setlocale(LC_ALL, nullptr)), _InForce(std::setlocale(LC_ALL, name) != nullptr) {}
  ~ScopedProcessLocale() { std::setlocale(LC_ALL, _Before.c_str()); }
  ScopedProcessLocale(const ScopedProcessLocale&) = delete;
  ScopedProcessLocale& operator=(const ScopedProcessLocale&) = delete;

  bool IsInForce(const std::string& decimal_character = ",") const {
    return _InForce && localeconv()->decimal_point == decimal_character;
  }

 private:
  std::string _Before;
  bool _InForce;
};

}  // namespace formulatest
