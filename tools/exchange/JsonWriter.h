// Analyses as JSON, by the templates of the catalogue (VEXSTMJSONServices.h).
#pragma once

#include <optional>
#include <string>

#include "tools/Catalogue.h"
#include "tools/Surroundings.h"
#include "tools/exchange/ExchangedAnalysis.h"

namespace tool {

/// Writes its files in a temporary folder of its own, which goes with it. The session has to outlive it.
class JsonWriter {
 public:
  /// Raises NoJsonTemplate and JsonTemplateNotUsable, with the folders of the catalogue that were searched.
  JsonWriter(const Catalogue& catalogue, const Surroundings& surroundings);
  ~JsonWriter();
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  /// The document of an analysis. Raises JsonNotWritable, and NameNoFileName for an identifier that is no name of a
  /// file.
  std::string DocumentOf(const ExchangedAnalysis& analysis) const;

 private:
  KORSession& _Session;
  std::optional<KORUnicodeString> _FolderBefore;  // that the session has for temporary files
  std::string _Folder;
};

}  // namespace tool
