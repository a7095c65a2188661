// Messages about analyses that come in and go out. The words for a cause are written here and nowhere else.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tools/Messages.h"
#include "tools/exchange/ExchangeType.h"
#include "tools/exchange/ExchangedAnalysis.h"
#include "tools/exchange/Losses.h"

namespace tool {

/// An item of a stream, from 1.
struct ItemPlace {
  const std::string& Path;
  std::size_t Item;
};

// Usage.
Failure SeveralWithoutFolder(std::string_view form, std::size_t count);
Failure IdentifierOfSeveral(std::size_t count);
Failure ForceWithoutFolder(const std::string& command);
Failure InputTwice(const std::string& command);
Failure DashIsNoStream(const std::string& command);

// Streams as files.
Failure NoSuchStreamOrFolder(const std::string& path);
Failure StreamFolderEmpty(const std::string& path);
Failure StreamNotReadable(const std::string& path, const std::string& cause);
Failure StreamTooLong(const std::string& path, std::size_t bound);
Failure StreamOutsideFolder(const std::string& path, const std::string& folder);
Failure StreamEmpty(const std::string& path);
Failure StreamWithNul(const std::string& path);
Failure StreamWithTooManyItems(const std::string& path, std::size_t count, std::size_t bound);
Failure StreamWithUnknownKeys(const std::string& path, std::size_t bound);
Failure StreamHoldsNothing(const std::string& path);
Failure StreamIdentifierNotUsable(const std::string& path, std::string_view identifier);
Failure StreamIdentifierShared(const std::string& path, std::string_view identifier, const std::string& other_path);

// Items.
Failure ItemTooShort(const ItemPlace& place, std::string_view kind, std::size_t fields, std::size_t needed);
Failure ItemOfNoKind(const ItemPlace& place, std::string_view item);
Failure AttributeUnknown(const ItemPlace& place, std::string_view key);
Failure AttributeTwice(const ItemPlace& place, std::string_view key);
Failure ColumnUnknown(const ItemPlace& place, std::string_view key);
Failure ColumnTwiceInStream(const ItemPlace& place, std::string_view key);
Failure ColumnNoNumber(const ItemPlace& place, std::string_view text);
Failure ColumnWithoutHeading(const ItemPlace& place, std::string_view text, std::size_t count);
Failure RowNoNumber(const ItemPlace& place, std::string_view text);
Failure RowBelowOne(const ItemPlace& place, std::string_view text);
Failure RowBehindGap(const ItemPlace& place, std::string_view text, int expected);
Failure ValueWithColon(const ItemPlace& place, std::string_view key, std::string_view value, std::string_view kept);
Failure ValueNoNumber(const ItemPlace& place, std::string_view key, std::string_view value, ExchangeType type,
                      const std::string& read_as);
Failure MoreFaultyItems(const std::string& path, std::size_t count);
Failure ReferenceUnresolved(const std::string& path, int row, std::string_view identifier);

// Migration.
Failure StreamMarkRead(const std::string& path);
Failure StreamReturnRead(const std::string& path);
Failure StreamNotMigrated(const std::string& path, long status);
Failure StreamWithLosses(const std::string& path, std::size_t count);

// What a form cannot hold.
Failure ValueLost(const ExchangedAnalysis& analysis, const Loss& loss, std::string_view form);
Failure MoreValuesLost(const ExchangedAnalysis& analysis, std::size_t count);
/// Each of them; of very many the first ones, and the number of the others.
std::vector<Failure> ValuesLost(const ExchangedAnalysis& analysis, const std::vector<Loss>& losses,
                                std::string_view form);
Failure LeftOutOfForm(const ExchangedAnalysis& analysis, const std::set<std::string>& attributes,
                      const std::set<std::string>& keys, std::string_view form);
Failure RowsLeftOutOfForm(const ExchangedAnalysis& analysis, std::string_view what, const std::set<int>& rows,
                          std::string_view form);
Failure ComputedByCalc(const ExchangedAnalysis& analysis, const std::set<std::string>& attributes,
                       const std::set<int>& rows);
Failure ReuseShadowed(const ExchangedAnalysis& analysis, std::string_view reused, std::string_view found);
Failure NothingWritten();

// Files that are written.
Failure IdentifierNoFileName(std::string_view identifier);
Failure FileNameTwice(std::string_view identifier);
Failure FileIsThere(const std::string& path);
Failure FileNotWritable(const std::string& path, const std::string& cause);

// JSON.
Failure NoJsonTemplate(const std::string& name, const std::vector<SearchedPlace>& places);
Failure JsonTemplateNotUsable(const std::string& path, const std::string& what);
Failure JsonNotWritable(const std::string& path, const std::string& folder);

/// The same words with another status: Done for what is told, and does not stop the run.
Failure AsNote(const Failure& failure);

}  // namespace tool
