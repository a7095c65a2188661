// A locale for the time of a test: on the calling thread alone, or in the whole process.
#pragma once

#include <locale.h>

#include <clocale>
#include <map>
#include <mutex>
#include <string>

namespace formulatest {

/// Puts a locale in force in the whole process until the end of the scope, as a program does that calls setlocale at
/// its start. A test asks IsInForce first and fails without it.
class ScopedProcessLocale {
 public:
  explicit ScopedProcessLocale(const char* name)
      : _Before(std::setlocale(LC_ALL, nullptr)), _IsLoaded(std::setlocale(LC_ALL, name) != nullptr) {}
  ~ScopedProcessLocale() { std::setlocale(LC_ALL, _Before.c_str()); }
  ScopedProcessLocale(const ScopedProcessLocale&) = delete;
  ScopedProcessLocale& operator=(const ScopedProcessLocale&) = delete;

  bool IsLoaded() const { return _IsLoaded; }
  /// True if the locale could be had and writes `decimal_character` between the whole part and the fraction.
  bool IsInForce(const std::string& decimal_character = ",") const {
    return _IsLoaded && localeconv()->decimal_point == decimal_character;
  }

 private:
  std::string _Before;
  bool _IsLoaded;
};

/// The locales loaded so far, each once. They are loaded through the locale of the process, since newlocale of the C
/// library loses memory where LOCPATH is set; so the first use of a name is no matter for several threads.
class LoadedLocales {
 public:
  /// The locale of that name; null if it cannot be had.
  static locale_t Get(const std::string& name) {
    static LoadedLocales loaded;
    const std::lock_guard lock(loaded._Mutex);
    const auto [place, is_new] = loaded._Locales.try_emplace(name, nullptr);
    if (is_new) {
      const ScopedProcessLocale process(name.c_str());
      if (process.IsLoaded()) place->second = duplocale(LC_GLOBAL_LOCALE);
    }
    return place->second;
  }

 private:
  LoadedLocales() = default;
  ~LoadedLocales() {
    for (const auto& [name, locale] : _Locales) {
      if (locale != nullptr) freelocale(locale);
    }
  }

  std::mutex _Mutex;
  std::map<std::string, locale_t> _Locales;
};

/// Puts a locale in force on this thread until the end of the scope. A test asks IsInForce first and fails without it.
class ScopedLocale {
 public:
  explicit ScopedLocale(const char* name) : _Locale(LoadedLocales::Get(name)) {
    if (_Locale != nullptr) _Before = uselocale(_Locale);
  }
  ~ScopedLocale() {
    if (_Locale != nullptr) uselocale(_Before);
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

}  // namespace formulatest
