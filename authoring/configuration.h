// A configuration as the utility loads it, with the terminal around it, in memory.
#pragma once

#include "authoring/terminal_copy.h"
#include "config/config_source.h"
#include "config/data_store.h"
#include "values/symbol_table.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace authoring {

// Where something stands: for people a file with line and column, counted from 1 in characters; 0: none.
// In a registry there are no lines.
struct Position {
  std::string file;
  std::size_t line = 0;
  std::size_t column = 0;
  bool operator==(const Position&) const = default;
};

// A document that the utility refuses.
struct BrokenDocument {
  Position position;
  WideString reason;  // the reader's own words, and in which element
  std::string mend;   // what to do about it, as far as the beginning of the file tells
};

class Configuration {
 public:
  struct Loaded {
    std::unique_ptr<Configuration> configuration;  // null: the arguments or the storage cannot be used
    std::string problem;                           // then: one line that says why
  };

  // `path`: a storage folder, an XML file, or a registry file. The storage of a file is the folder it lies in, or the
  // one above if its device, tables or registry are there. `commandLine` is the utility's; empty for what `path` names,
  // or for what the utility takes by itself.
  static Loaded Load(const std::filesystem::path& path, WideStringView commandLine = {});

  const TerminalCopy& Terminal() const { return terminal_; }
  const std::vector<BrokenDocument>& BrokenDocuments() const { return broken_; }

  // The rest only when this is true: a document that is not well formed leaves nothing to look at.
  bool HasTree() const { return tree_ != nullptr; }
  const std::shared_ptr<const config::PDataStore>& Tree() const { return tree_; }
  const WideString& RootPath() const { return rootPath_; }
  const config::ConfigKey& Root() const { return *tree_->Find(rootPath_); }
  const values::SymbolTable& Symbols() const { return symbols_; }

  // Null for a configuration in the registry.
  const config::XmlIndex* Index() const { return document_ ? &document_->Index() : nullptr; }
  // The utility's, for the same configuration in its storage.
  const WideString& CommandLine() const { return commandLine_; }
  // The file that holds the configuration.
  const std::string& File() const { return file_; }

  // Of a place in the document's text.
  Position PositionAt(std::size_t offset) const;
  // Of a key's start tag, and of the value's inside it (the key's, when it has no such value).
  Position PositionOf(const config::ConfigKey& key) const;
  Position PositionOf(const config::ConfigKey& key, WideStringView valueName) const;
  // Of a place in the value's text, counted in its characters after decoding.
  Position PositionOf(const config::ConfigKey& key, WideStringView valueName, std::size_t offset) const;

 private:
  // A place in the text that is known: each line's start, and some within a long one, so that no place is far from one.
  struct Mark {
    std::size_t offset = 0;
    std::size_t line = 0;
    std::size_t column = 0;
  };

  Configuration() = default;

  void SetMarks() const;
  static std::size_t ColumnIn(WideStringView text, const Mark& mark, std::size_t offset);

  std::string LoadSource(const WideString& commandLine, const std::filesystem::path& given);
  std::uint32_t ValueElement(const config::ConfigKey& key, WideStringView valueName) const;

  TerminalCopy terminal_;
  std::vector<BrokenDocument> broken_;
  std::shared_ptr<const config::XmlDocument> document_;
  std::shared_ptr<const config::PDataStore> tree_;
  WideString rootPath_;
  values::SymbolTable symbols_;
  std::string file_;
  WideString commandLine_;
  mutable std::vector<Mark> marks_;  // made when a place is first asked for
};

// While it lives, the configuration's terminal is the environment in force: tables, registry and files are found.
class InTerminal {
 public:
  explicit InTerminal(const Configuration& configuration) : installed_(EnvironmentOf(configuration.Terminal())) {}

 private:
  platform::host::InstalledEnvironment installed_;
};

}  // namespace authoring
