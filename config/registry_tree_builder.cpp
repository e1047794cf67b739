#include "base/format.h"
#include "config/key_writer.h"
#include "config/registry_key_reader.h"
#include "config/tree_builder.h"
#include "config/tree_walk.h"
#include "platform/debug.h"

#include <utility>

namespace config {
namespace {

class RegistryTreeBuilder {
 public:
  RegistryTreeBuilder(PathTable& paths, Arena& arena) : paths_(paths), arena_(arena), writer_(arena) {}

  std::size_t Build(WideStringView rootPath, std::uint32_t maxDepth) {
    walk_.Enter(Descend(paths_.Top(), arena_.Copy(rootPath)));
    walk_.Run(maxDepth, [this](PathNode& node, bool hasChildren) { Read(node, hasChildren); });
    return walk_.Count();
  }

 private:
  void Read(PathNode& node, bool hasChildren) {
    RegistryKeyReader reader(PathOf(node));
    writer_.SetFromRegistry();
    for (const auto& [name, text] : reader.values) writer_.AddValue(arena_.Copy(name), arena_.Copy(text));
    for (const WideString& name : reader.subkeys) writer_.AddSubkey(arena_.Copy(name));
    AddDescendent(node, reader);
    writer_.SetLists(std::move(reader.lists));
    writer_.Finish(node.key);
    if (!hasChildren) return;
    for (const WideStringView name : node.key.Subkeys()) walk_.Enter(Descend(node, name));
  }

  // As the registry spells it. The registry takes a path in any case and passes over empty names in it; read under each
  // such spelling, keys would multiply, and a backslash alone would lead from a key to itself without end.
  void AddDescendent(const PathNode& node, const RegistryKeyReader& reader) {
    const auto value = reader.values.find(u"Descendent");
    if (value == reader.values.end() || value->second.empty()) return;
    WideString spelled;
    WideString path = PathOf(node);
    ForEachName(value->second, [&](WideStringView name) {
      if (name.empty()) return;
      const WideString found = SubkeyName(path, name);
      spelled.append(spelled.empty() ? u"" : u"\\").append(found);
      path.append(u"\\").append(found);
    });
    if (spelled.empty()) {
      platform::DebugOutput(base::Format(u"FAILED: RegistryTreeBuilder::Read  Descendent[%s] leads back to [%s]\r\n",
                                         value->second, path));
    } else {
      writer_.AddSubkey(arena_.Copy(spelled));
    }
  }

  static WideString SubkeyName(WideStringView path, WideStringView name) {
    const WideString wanted = base::ToUpper(name);
    for (const WideString& subkey : RegistryKeyReader(path).subkeys) {
      if (base::ToUpper(subkey) == wanted) return subkey;
    }
    return WideString(name);
  }

  PathNode& Descend(PathNode& from, WideStringView path) {
    PathNode* node = &from;
    ForEachName(path, [&](WideStringView name) { node = &paths_.Child(*node, name); });
    return *node;
  }

  PathTable& paths_;
  Arena& arena_;
  KeyWriter writer_;
  TreeWalk walk_;
};

}  // namespace

std::size_t BuildFromRegistry(WideStringView rootPath, std::uint32_t maxDepth, PathTable& paths, Arena& arena) {
  return RegistryTreeBuilder(paths, arena).Build(rootPath, maxDepth);
}

}  // namespace config
