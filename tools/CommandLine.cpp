// What the arguments of the program ask for.
#include "tools/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>

#include "tools/Messages.h"
#include "tools/Systems.h"
#include "tools/UsageFault.h"
#include "tools/analysis/AnalysisMessages.h"
#include "tools/exchange/ExchangeMessages.h"

namespace tool {

namespace {

constexpr const char* ProgramName = "timeanalysis";

// A command's line in the list of commands, and the rest of what its own help tells.
struct HelpText {
  const char* Line;
  const char* Rest;
};

constexpr HelpText EvalHelp{"Evaluates time formulas: value, status and text of each",
                            R"(A formula holds numbers (a digit first), + - * / and parentheses, and calls of
sin cos tan exp pow sqrt abs, MTM1REACH MTM1MOVE MTM1DYNAMICFACTOR
MTM1STATICCONSTANT MTM1POSITION MTM1TURN MTM1EYETRAVEL MTM1SIDESTEP
MTM1LEGMOTION, WFASY WFPP WFT, and MOST. "," or "_" separates arguments. A sign
stands only at the start of a formula, a parenthesis or an argument.

Status: 0 evaluated; -1 division by zero; -2 unknown character or failed name;
above 0 a syntax error, the place just behind the last token read.
)"};

constexpr HelpText CalcHelp{"Computes analyses from CSV files: lines, times and totals",
                            R"(A file holds one analysis: a header row that names its columns (code, frequency,
time type, description, time, seconds, system, reuse, signature, body, values,
value added, additional description, picture, recorded), and one row for each
line.
"# system: MTM1" ahead of the header names its system. Of a folder all files
whose names end in ".csv" are computed, those in its folders too.
)"};

constexpr HelpText ImpactHelp{"Tells what the change of an analysis touches, and brings it up to date",
                              R"(Lists all analyses in the folder that reuse the template, at any level: where,
and their totals before and behind its change. With --apply recorded times
(column "recorded") of changed analyses are taken over: files are changed.

Exit status 3: stopped while files were changed; each is whole, and listed as
new or old.
)"};

constexpr HelpText ExportHelp{"Writes analyses as streams, lists, JSON or CSV files",
                              R"(Reads and computes analyses as calc does. Forms: stream (read by import), list
(one item a line), json (by the templates of the catalogue), csv (read by calc).
Values that stream or csv cannot hold are told, and nothing is written.
)"};

constexpr HelpText ImportHelp{"Reads analyses from streams and writes them as CSV files, or in another form",
                              R"(A file is one stream; of a folder all files whose names end in ".stream" are
read, those in its folders too. Times stay as they come. Items that cannot be
read, and values that do not come over, are told, and nothing is written.
)"};

constexpr HelpText MigrateHelp{"Brings streams of old systems over to CSV files, and reports on each",
                               R"(Takes files and folders as import does; each stream is migrated by itself, and
those that cannot be are skipped with their cause. Attributes and columns that the
exchange does not know are reported. Files that are there with the same content
stay, so that a migration can be run again.
)"};

constexpr HelpText CodeHelp{"Looks codes up in the catalogue of a motion-time system",
                            R"(The catalogue is that of --catalogue; otherwise the setting datacardpath, the
environment variable KORStartupPath and the installed catalogue are tried.
)"};

constexpr HelpText NormHelp{"Turns norm texts of MOST and MODAPTS into code form, and back for MOST",
                            R"(Systems: MOST, MiniMOST, MaxiMOST, and MODAPTS from norm text to code only.
)"};

constexpr HelpText PatternHelp{"Tells whether codes match a code pattern, and what each token took",
                               R"("pattern -" reads lines of system, pattern and code with tabs between them.
)"};

constexpr HelpText CatalogueHelp{"Lists or checks the files of a catalogue", ""};

constexpr HelpText ListHelp{"Lists the systems, their files, entries and card groups", ""};

constexpr HelpText CheckHelp{"Reports what is wrong with the files of a catalogue",
                             R"(Looked for: files that do not parse, missing and unread fields, duplicate codes,
patterns that do not mean what they say or can never match, formulas that fail.
)"};

constexpr const char* Footer = R"(Exit status: 0 done, 1 something was not found or a finding was made,
2 wrong usage or unreadable input.
)";

// The parser would take some texts for options, vectors or marks of its own; a shield ahead of them hides that.
constexpr char Shield = '\x1A';

std::vector<std::string> Shielded(const std::vector<std::string>& arguments) {
  std::vector<std::string> shielded;
  bool options_end = false;
  for (const std::string& argument : arguments) {
    const bool plain = !argument.empty() && std::isalnum(static_cast<unsigned char>(argument.front()));
    const bool keep = !options_end && (plain || IsOption(argument));
    shielded.push_back(keep ? argument : Shield + argument);
    if (argument == "--") options_end = true;
  }
  return shielded;
}

void Unshield(std::string& text) {
  text.erase(std::remove(text.begin(), text.end(), Shield), text.end());
}

void AddVersion(CLI::App& app) {
  app.set_version_flag("--version", std::string(ProgramName) + " " + TIMEANALYSIS_VERSION, "Show the version");
  app.set_help_flag("-h,--help", "Show this help");
}

void AddJson(CLI::App& app, CommandLine& line) {
  app.add_flag("--json", line.Json, "One JSON object a line, keys in a fixed order");
}

void AddCatalogueOptions(CLI::App& app, CommandLine& line) {
  app.add_option("--catalogue", line.Catalogue,
                 "Folder that holds DataCardEntry and DataCard; nothing else is searched")
      ->type_name("FOLDER");
  app.add_option("--settings", line.Settings, "Settings file, with datacardpath and mintotmuconversion")
      ->type_name("FILE");
}

void AddTexts(CLI::App& app, CommandLine& line, const char* name, const char* description) {
  app.add_option(name, line.Texts, description)->required()->type_name("");
}

void AddSystem(CLI::App& app, CommandLine& line) {
  app.add_option("SYSTEM", line.System, "Motion-time system, as MTM1, MTM2, MOST or MODAPTS")
      ->required()
      ->type_name("");
}

CLI::App* AddCommand(CLI::App& parent, const char* name, const HelpText& help) {
  CLI::App* command = parent.add_subcommand(name, help.Line);
  command->footer(std::string(help.Rest) + (*help.Rest == '\0' ? "" : "\n") + Footer);
  AddVersion(*command);
  return command;
}

// The commands under the program's name; what is chosen is told by got_subcommand.
struct Commands {
  CLI::App* Calc;
  CLI::App* Impact;
  CLI::App* Export;
  CLI::App* Import;
  CLI::App* Migrate;
  CLI::App* Eval;
  CLI::App* Code;
  CLI::App* Norm;
  CLI::App* Pattern;
  CLI::App* Catalogue;
  CLI::App* List;
  CLI::App* Check;
};

CLI::App* AddCatalogueCommand(CLI::App& parent, CommandLine& line, std::string& folder, const char* name,
                              const HelpText& help) {
  CLI::App* command = AddCommand(parent, name, help);
  command->add_option("FOLDER", folder, "Folder that holds DataCardEntry and DataCard")->type_name("");
  AddCatalogueOptions(*command, line);
  AddJson(*command, line);
  return command;
}

// Options of commands that read analyses from CSV files.
void AddAnalysisOptions(CLI::App& command, CommandLine& line) {
  AddTexts(command, line, "FILE", "Files of analyses, and folders of such files");
  command.add_option("--system", line.System, "Motion-time system of analyses that name none")->type_name("SYSTEM");
  command.add_option("--model", line.Model, "Folder up to which reused analyses are looked for")->type_name("FOLDER");
}

void AddUnit(CLI::App& command, CommandLine& line) {
  command.add_option("--unit", line.Unit, "Unit of the times: tmu (unless given), s, min, h or mod (0.129 s)")
      ->type_name("UNIT")
      ->check(CLI::IsMember({"tmu", "s", "min", "h", "mod"}));
}

CLI::App* AddCalcCommand(CLI::App& app, CommandLine& line) {
  CLI::App* command = AddCommand(app, "calc", CalcHelp);
  AddAnalysisOptions(*command, line);
  AddUnit(*command, line);
  AddCatalogueOptions(*command, line);
  command->add_flag("--csv", line.Csv, "Comma-separated values, a row for each line and each total");
  AddJson(*command, line);
  return command;
}

CLI::App* AddImpactCommand(CLI::App& app, CommandLine& line) {
  CLI::App* command = AddCommand(app, "impact", ImpactHelp);
  command->add_option("FOLDER", line.Texts, "Folder of analyses: the template, and all that may reuse it")
      ->required()
      ->expected(1)
      ->type_name("");
  command->add_option("--template", line.Template, "Identifier of the analysis that has changed")
      ->required()
      ->type_name("ID");
  command->add_flag("--apply", line.Apply, "Change the files; unless given, nothing is written");
  command->add_option("--system", line.System, "Motion-time system of analyses that name none")->type_name("SYSTEM");
  AddUnit(*command, line);
  AddCatalogueOptions(*command, line);
  command->add_flag("--csv", line.Csv, "Comma-separated values, a row for each use and each total");
  AddJson(*command, line);
  return command;
}

// Options of commands that write a file for each analysis. Returns that of the folder.
CLI::Option* AddFolderOptions(CLI::App& command, CommandLine& line) {
  CLI::Option* const folder =
      command
          .add_option("--into", line.Into, "Folder to write a file into for each analysis, called by its identifier")
          ->type_name("FOLDER");
  command.add_flag("--force", line.Force, "Replace files that are there already");
  command.add_flag("--lossy", line.Lossy, "Write what the form can hold, though it cannot hold all");
  return folder;
}

// Options of commands that write forms of the exchange.
void AddFormOptions(CLI::App& command, CommandLine& line, const std::string& format) {
  command.add_option("--format", line.Format, "What is written: " + format + " unless given")
      ->type_name("FORM")
      ->check(CLI::IsMember({"list", "stream", "json", "csv"}));
  AddFolderOptions(command, line);
}

CLI::App* AddExportCommand(CLI::App& app, CommandLine& line) {
  CLI::App* command = AddCommand(app, "export", ExportHelp);
  AddAnalysisOptions(*command, line);
  AddFormOptions(*command, line, "stream");
  AddCatalogueOptions(*command, line);
  return command;
}

CLI::App* AddImportCommand(CLI::App& app, CommandLine& line) {
  CLI::App* command = AddCommand(app, "import", ImportHelp);
  AddTexts(*command, line, "STREAM", "Streams, and folders of such files; - reads one from standard input");
  command->add_option("--identifier", line.Identifier, "Identifier of the analysis; unless given, the name of the file")
      ->type_name("ID");
  command->add_flag("--calculate", line.Calculate, "Compute the totals anew from the lines");
  AddFormOptions(*command, line, "csv");
  AddCatalogueOptions(*command, line);
  return command;
}

CLI::App* AddMigrateCommand(CLI::App& app, CommandLine& line) {
  CLI::App* command = AddCommand(app, "migrate", MigrateHelp);
  AddTexts(*command, line, "STREAM", "Streams, and folders of such files");
  AddFolderOptions(*command, line)->required();
  AddCatalogueOptions(*command, line);
  AddJson(*command, line);
  return command;
}

Commands AddCommands(CLI::App& app, CommandLine& line, std::string& folder) {
  Commands commands{};
  commands.Eval = AddCommand(app, "eval", EvalHelp);
  AddTexts(*commands.Eval, line, "FORMULA", "Formulas; - reads them from standard input, one a line");
  commands.Eval->add_option("--system", line.System, "Evaluate by the rounding rules of this system")
      ->type_name("SYSTEM");

  commands.Code = AddCommand(app, "code", CodeHelp);
  AddSystem(*commands.Code, line);
  AddTexts(*commands.Code, line, "CODE", "Codes; - reads them from standard input, one a line");
  commands.Code->add_option("--unit", line.Unit, "Show the time in one unit: tmu, s, min or mod (0.129 s)")
      ->type_name("UNIT")
      ->check(CLI::IsMember({"tmu", "s", "min", "mod"}));
  AddCatalogueOptions(*commands.Code, line);

  commands.Calc = AddCalcCommand(app, line);
  commands.Impact = AddImpactCommand(app, line);
  commands.Export = AddExportCommand(app, line);
  commands.Import = AddImportCommand(app, line);
  commands.Migrate = AddMigrateCommand(app, line);

  commands.Norm = AddCommand(app, "norm", NormHelp);
  AddSystem(*commands.Norm, line);
  AddTexts(*commands.Norm, line, "TEXT", "Norm texts or codes; - reads them from standard input, one a line");
  commands.Norm
      ->add_option("--frequency", line.Frequency, "Frequency of the line, a number or a formula; 1 unless given")
      ->type_name("F");
  commands.Norm
      ->add_option("--to", line.To, "code or norm; unless given, a text with \"-\" goes to norm, any other to code")
      ->type_name("FORM")
      ->check(CLI::IsMember({"code", "norm"}));

  commands.Pattern = AddCommand(app, "pattern", PatternHelp);
  AddSystem(*commands.Pattern, line);
  commands.Pattern->add_option("PATTERN", line.Pattern, "Code pattern, as '\"GR\"%[1,80]'")->type_name("");
  commands.Pattern->add_option("CODE", line.Texts, "Codes; - reads them from standard input, one a line")
      ->type_name("");

  commands.Catalogue = AddCommand(app, "catalogue", CatalogueHelp);
  commands.Catalogue->require_subcommand(1);
  commands.List = AddCatalogueCommand(*commands.Catalogue, line, folder, "list", ListHelp);
  commands.Check = AddCatalogueCommand(*commands.Catalogue, line, folder, "check", CheckHelp);
  for (CLI::App* command : {commands.Eval, commands.Code, commands.Norm, commands.Pattern}) AddJson(*command, line);
  return commands;
}

Command Chosen(const Commands& commands) {
  if (commands.Calc->parsed()) return Command::Calc;
  if (commands.Impact->parsed()) return Command::Impact;
  if (commands.Export->parsed()) return Command::Export;
  if (commands.Import->parsed()) return Command::Import;
  if (commands.Migrate->parsed()) return Command::Migrate;
  if (commands.Code->parsed()) return Command::Code;
  if (commands.Norm->parsed()) return Command::Norm;
  if (commands.Pattern->parsed()) return Command::Pattern;
  if (commands.List->parsed()) return Command::CatalogueList;
  if (commands.Check->parsed()) return Command::CatalogueCheck;
  return Command::Eval;
}

void TakeTextsFromInput(CommandLine& line, const std::string& command) {
  if (line.Chosen == Command::Pattern && line.System == "-") {
    if (!line.Pattern.empty() || !line.Texts.empty()) throw DashNotAlone(command);
    line.FromInput = true;
    return;
  }
  if (line.Chosen == Command::Pattern && line.Texts.empty()) {
    throw WrongUsage("a pattern and at least one code are missing", command);
  }
  const auto dashes = std::count(line.Texts.begin(), line.Texts.end(), "-");
  if (line.Chosen == Command::Import && dashes > 1) throw InputTwice(command);
  if (line.Chosen == Command::Import || dashes == 0) return;
  if (line.Chosen == Command::Migrate) throw DashIsNoStream(command);
  const bool reads_files =
      line.Chosen == Command::Calc || line.Chosen == Command::Impact || line.Chosen == Command::Export;
  if (reads_files) throw DashIsNoFile(command);
  if (line.Texts.size() > 1) throw DashNotAlone(command);
  line.FromInput = true;
  line.Texts.clear();
}

// Options and folders that are given but empty; left alone they would count as not given.
void RefuseEmptyValues(const CLI::App& app) {
  const CLI::App* command = &app;
  while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
  for (const char* name : {"--catalogue", "--settings", "--frequency", "--model", "--into", "--identifier",
                           "--template", "FOLDER", "SYSTEM", "--system"}) {
    const CLI::Option* option = command->get_option_no_throw(name);
    if (option == nullptr || option->count() == 0) continue;
    std::string value = option->results().front();
    Unshield(value);
    if (value.empty()) throw EmptyValue(name, CommandWords(app));
  }
}

void FinishCommandLine(CommandLine& line, std::string& folder, const std::string& command) {
  for (std::string* text : {&line.Catalogue, &line.Settings, &line.System, &line.Model, &line.Into, &line.Identifier,
                            &line.Template, &line.Pattern, &line.Frequency, &folder}) {
    Unshield(*text);
  }
  for (std::string& text : line.Texts) Unshield(text);
  TakeTextsFromInput(line, command);
  if (line.Json && line.Csv) throw TwoForms(command);
  if (line.Force && line.Into.empty()) throw ForceWithoutFolder(command);
  if (line.Format.empty()) line.Format = line.Chosen == Command::Import ? "csv" : "stream";
  if (!line.System.empty() && line.System != "-") RequireSystem(line.System);
  if (!folder.empty() && !line.Catalogue.empty() && folder != line.Catalogue) {
    throw TwoCatalogueFolders(folder, line.Catalogue);
  }
  if (line.Catalogue.empty()) line.Catalogue = folder;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  std::string folder;
  CLI::App app("Turns codes of predetermined-motion-time systems into times.", ProgramName);
  AddVersion(app);
  app.footer(Footer);
  app.require_subcommand(1);
  const Commands commands = AddCommands(app, line, folder);
  try {
    std::vector<std::string> reversed = Shielded(arguments);
    std::reverse(reversed.begin(), reversed.end());  // the parser takes its arguments from the back
    app.parse(std::move(reversed));
  } catch (const CLI::CallForHelp&) {
    std::string help = app.help();
    help.erase(help.find_last_not_of('\n') + 1);
    line.Information = help + "\n";
    return line;
  } catch (const CLI::CallForVersion& version) {
    line.Information = std::string(version.what()) + "\n";
    return line;
  } catch (const CLI::ParseError& error) {
    std::string cause = error.what();
    Unshield(cause);
    throw UsageFailure(app, arguments, error, cause);
  }
  line.Chosen = Chosen(commands);
  RefuseEmptyValues(app);
  FinishCommandLine(line, folder, CommandWords(app));
  return line;
}

}  // namespace tool
