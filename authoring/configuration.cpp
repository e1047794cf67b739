#include "authoring/configuration.h"

#include "base/string_table.h"
#include "base/utf8.h"
#include "platform/host/root_path.h"
#include "platform/host/utf8_path.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <utility>

namespace authoring {
namespace {

namespace fs = std::filesystem;

bool HoldsStorage(const fs::path& folder) {
  std::error_code error;
  return fs::exists(folder / "device.txt", error) || fs::exists(folder / "registry.reg", error) ||
         fs::exists(folder / "tables.txt", error);
}

// What a path on the author's machine comes down to for the utility.
struct Argument {
  fs::path root;
  fs::path registryFile;  // empty: the storage's own
  WideString commandLine;
};

bool HasExtension(const fs::path& file, WideStringView extension) {
  return base::EqualsIgnoringCase(base::FromUtf8(file.extension().string()), extension);
}

Argument Take(const fs::path& path, WideStringView commandLine) {
  std::error_code error;
  if (fs::is_directory(path, error)) return {path, {}, WideString(commandLine)};

  const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
  if (HasExtension(path, u".reg")) {
    const WideStringView key = LoadText(TextId::kDefaultRegistrySource);
    return {folder, path, WideString(commandLine.empty() ? key : commandLine)};
  }
  const WideString name = base::FromUtf8(path.filename().string());
  const fs::path above = folder / "..";
  if (!HoldsStorage(folder) && HoldsStorage(above)) {
    const fs::path named = folder.filename() == "." ? fs::canonical(folder, error) : folder;
    const fs::path root = named.has_parent_path() ? named.parent_path() : fs::path(".");
    return {root, {}, u"\\" + base::FromUtf8(named.filename().string()) + u"\\" + name};
  }
  return {folder, {}, u"\\" + name};
}

// Of the terminal in force, as it is on disk.
std::string FileOf(WideStringView path) { return platform::host::FindPlace(path).fullName; }

// Names that are not UTF-8 can differ on disk and read the same.
bool IsOther(const fs::path& file, const fs::path& taken) {
  std::error_code error;
  return fs::exists(taken, error) && !fs::equivalent(file, taken, error) && !error;
}

// The reader takes every byte for a character, and so breaks somewhere in the middle of what is no such text.
std::string MendOf(const std::string& file) {
  constexpr std::size_t kEnough = 64;
  std::string start(kEnough, ' ');
  std::ifstream stream(platform::host::PathOf(file), std::ios::binary);
  stream.read(start.data(), static_cast<std::streamsize>(start.size()));
  start.resize(static_cast<std::size_t>(stream.gcount()));
  if (start.find('\0') != std::string::npos || start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF")) {
    return "Save the file as UTF-8: this is UTF-16, or no text at all.";
  }
  if (start.find('<') == std::string::npos && start.size() < kEnough) return "Write a GROUP with a name into the file.";
  return "Mend the tag there, or the one that is open.";
}

}  // namespace

Configuration::Loaded Configuration::Load(const fs::path& path, WideStringView commandLine) {
  std::error_code error;
  if (!fs::exists(path, error)) return {nullptr, path.string() + ": there is no such file or folder"};
  const Argument argument = Take(path, commandLine);
  std::unique_ptr<Configuration> configuration(new Configuration);  // NOLINT: the constructor is private
  std::string problem = ReadTerminal(argument.root, argument.registryFile, configuration->terminal_);
  if (problem.empty()) problem = configuration->LoadSource(argument.commandLine, path);
  if (!problem.empty()) return {nullptr, std::move(problem)};
  return {std::move(configuration), {}};
}

std::string Configuration::LoadSource(const WideString& commandLine, const fs::path& given) {
  const InTerminal environment(*this);
  const bool isDocument = !fs::is_directory(given) && !HasExtension(given, u".reg");
  if (isDocument && IsOther(given, FileOf(commandLine))) {
    return given.string() +
           ": another file's name reads the same in the terminal, which takes that one: " + FileOf(commandLine);
  }
  commandLine_ = commandLine;
  config::SelectedSource selected = config::SelectSource(commandLine);
  for (const config::SourceRefusal& refusal : selected.refusals) {
    if (!refusal.isMalformed) continue;
    const std::string file = FileOf(refusal.source);
    broken_.push_back({{file, refusal.place.line, refusal.place.column}, refusal.reason, MendOf(file)});
  }
  // The utility goes on with the registry when its own file is not well formed; an author wants to know about the file.
  const bool isOtherSource = !selected.source || !selected.source->document;
  if (!broken_.empty() && isOtherSource) return {};
  if (!selected.source) {
    std::string problem = given.string() + ": there is no configuration";
    for (const config::SourceRefusal& refusal : selected.refusals) problem += "; " + base::ToUtf8(refusal.Line());
    return problem;
  }
  rootPath_ = selected.source->path;
  document_ = selected.source->document;
  tree_ = std::make_shared<const config::PDataStore>(rootPath_, document_, std::span<const WideString>(),
                                                     config::PDataStore::kWholeTree);
  symbols_ = values::SymbolTable::FromRegistry();
  const WideStringView path = commandLine.empty() ? LoadText(TextId::kDefaultXmlSource) : WideStringView(commandLine);
  file_ = document_ ? FileOf(path) : terminal_.registryFile.string();
  return {};
}

void Configuration::SetMarks() const {
  constexpr std::size_t kStretch = 4096;
  const WideStringView text = document_->Index().Text().View();
  Mark mark{0, 1, 1};
  while (mark.offset < text.size()) {
    marks_.push_back(mark);
    const WideStringView stretch = text.substr(mark.offset, kStretch);
    const std::size_t end = stretch.find(u'\n');
    if (end != WideStringView::npos) {
      mark = {mark.offset + end + 1, mark.line + 1, 1};
    } else {
      mark = {mark.offset + stretch.size(), mark.line, ColumnIn(text, mark, mark.offset + stretch.size())};
    }
  }
  marks_.push_back(mark);
}

std::size_t Configuration::ColumnIn(WideStringView text, const Mark& mark, std::size_t offset) {
  return mark.column + config::PlaceIn(text.substr(mark.offset), offset - mark.offset).column - 1;
}

Position Configuration::PositionAt(std::size_t offset) const {
  if (!document_) return {file_, 0, 0};
  if (marks_.empty()) SetMarks();
  const auto after = std::upper_bound(marks_.begin() + 1, marks_.end(), offset,
                                      [](std::size_t place, const Mark& mark) { return place < mark.offset; });
  const Mark& mark = *(after - 1);
  return {file_, mark.line, ColumnIn(document_->Index().Text().View(), mark, offset)};
}

Position Configuration::PositionOf(const config::ConfigKey& key) const {
  const std::uint32_t element = document_ ? key.Element() : 0;
  return element == 0 ? Position{file_, 0, 0} : PositionAt((*Index())[element].startTagStart);
}

// The last one of the name: that is the one that counts.
std::uint32_t Configuration::ValueElement(const config::ConfigKey& key, WideStringView valueName) const {
  const std::uint32_t element = document_ ? key.Element() : 0;
  if (element == 0) return 0;
  std::uint32_t found = 0;
  for (std::uint32_t child = (*Index())[element].firstChildIndex; child != 0;
       child = (*Index())[child].nextSiblingIndex) {
    if (Index()->TagName(child) == valueName) found = child;
  }
  return found;
}

Position Configuration::PositionOf(const config::ConfigKey& key, WideStringView valueName) const {
  const std::uint32_t element = ValueElement(key, valueName);
  return element == 0 ? PositionOf(key) : PositionAt((*Index())[element].startTagStart);
}

Position Configuration::PositionOf(const config::ConfigKey& key, WideStringView valueName, std::size_t offset) const {
  const std::uint32_t element = ValueElement(key, valueName);
  if (element == 0) return PositionOf(key);
  const config::XmlText data = Index()->Data(element);
  if (data.raw.empty()) return PositionAt((*Index())[element].startTagStart);
  const std::size_t start = static_cast<std::size_t>(data.raw.data() - Index()->Text().View().data());
  // Each reference is one character of the text.
  std::size_t at = 0;
  for (std::size_t decoded = 0; decoded < offset && at < data.raw.size(); ++decoded) {
    std::size_t length = 1;
    if (data.hasReferences && data.raw[at] == u'&') {
      const std::size_t end = data.raw.find(u';', at);
      const std::size_t reference = end == WideStringView::npos ? 1 : end + 1 - at;
      const config::XmlText piece{data.raw.substr(at, reference), true};
      if (piece.Decoded().size() == 1) length = reference;
    }
    at += length;
  }
  return PositionAt(start + at);
}

}  // namespace authoring
