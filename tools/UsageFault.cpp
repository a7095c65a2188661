// What is wrong with arguments that the parser refuses.
#include "tools/UsageFault.h"

#include <cctype>
#include <optional>
#include <set>

namespace tool {

namespace {

std::vector<const CLI::App*> InnerCommands(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App*) { return true; });
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
  for (const CLI::App* command : InnerCommands(app)) {
    if (command->get_name() == name) return command;
  }
  return nullptr;
}

// An option without the value that "=" puts behind its name.
std::string NameOf(const std::string& option) {
  return option.substr(0, option.find('='));
}

bool HasOption(const CLI::App& app, const std::string& name) {
  return app.get_option_no_throw(name) != nullptr;
}

bool AnyCommandHasOption(const CLI::App& app, const std::string& name) {
  if (HasOption(app, name)) return true;
  for (const CLI::App* command : InnerCommands(app)) {
    if (AnyCommandHasOption(*command, name)) return true;
  }
  return false;
}

// The first option that the command ahead of it does not know.
std::optional<Failure> OptionFault(const CLI::App& app, const std::vector<std::string>& arguments) {
  const CLI::App* level = &app;
  std::string words = app.get_name();
  for (const std::string& argument : arguments) {
    if (argument == "--") break;
    const bool inner = !InnerCommands(*level).empty();
    if (IsOption(argument)) {
      const std::string name = NameOf(argument);
      if (HasOption(*level, name)) continue;
      if (inner && AnyCommandHasOption(*level, name)) return OptionAheadOfCommand(name, words);
      return UnknownOption(name, words);
    }
    if (!inner) continue;
    const CLI::App* command = FindCommand(*level, argument);
    if (command == nullptr) break;
    level = command;
    words += " " + argument;
  }
  return std::nullopt;
}

// An option with a value that stands twice, or one without its value.
std::optional<std::string> ValueFault(const CLI::App& app, const std::vector<std::string>& arguments) {
  const CLI::App* level = &app;
  while (!level->get_subcommands().empty()) level = level->get_subcommands().front();
  std::set<std::string> met;
  for (std::size_t index = 0; index < arguments.size() && arguments[index] != "--"; ++index) {
    if (!IsOption(arguments[index])) continue;
    const std::string name = NameOf(arguments[index]);
    const CLI::Option* option = level->get_option_no_throw(name);
    if (option == nullptr || option->get_items_expected_max() == 0) continue;
    if (!met.insert(name).second) return "the option " + name + " stands twice; leave one out";
    const bool value_ahead = name.size() + 1 < arguments[index].size();
    if (!value_ahead && (index + 1 == arguments.size() || IsOption(arguments[index + 1]))) {
      return "the option " + name + " lacks its value";
    }
  }
  return std::nullopt;
}

}  // namespace

bool IsOption(const std::string& argument) {
  return argument == "-h" || argument == "--" ||
         (argument.starts_with("--") && argument.size() > 2 && std::isalpha(static_cast<unsigned char>(argument[2])));
}

std::string CommandWords(const CLI::App& app) {
  std::string words = app.get_name();
  for (const CLI::App* level = &app; !level->get_subcommands().empty();) {
    level = level->get_subcommands().front();
    words += " " + level->get_name();
  }
  return words;
}

Failure UsageFailure(const CLI::App& app, const std::vector<std::string>& arguments, const CLI::ParseError& error,
                     const std::string& cause) {
  if (const auto fault = OptionFault(app, arguments)) return *fault;
  const CLI::App* level = &app;
  while (!level->get_subcommands().empty()) level = level->get_subcommands().front();
  std::string names;
  for (const CLI::App* command : InnerCommands(*level)) names += (names.empty() ? "" : ", ") + command->get_name();
  if (names.empty()) {
    if (const auto fault = ValueFault(app, arguments)) return WrongUsage(*fault, CommandWords(app));
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
      return WrongUsage("more texts than the command takes", CommandWords(app));
    }
    return WrongUsage(cause, CommandWords(app));
  }
  for (const std::string& argument : arguments) {
    if (IsOption(argument)) return WrongUsage(cause, CommandWords(app));
    if (argument != level->get_name()) return UnknownCommand(argument, names, CommandWords(app));
  }
  return UnknownCommand("", names, CommandWords(app));
}

}  // namespace tool
