#include "rules/config_store.h"

#include "base/format.h"
#include "base/string_table.h"
#include "model/ordered_menu_items.h"
#include "platform/debug.h"

#include <string>
#include <unordered_set>
#include <vector>

namespace rules {
namespace {

// Gathers 16-bit units and hands them to the file in larger pieces.
class UnitWriter {
 public:
  explicit UnitWriter(platform::OutputFile& file) : file_(file) {}

  void Record(WideStringView text) {
    Put(u"<Tag>");
    Put(text);
    Put(u"<\\Tag>");
  }

  void Put(WideStringView text) {
    for (const char16_t unit : text) {
      bytes_.push_back(static_cast<char>(unit & 0xFF));
      bytes_.push_back(static_cast<char>(unit >> 8));
    }
    if (bytes_.size() >= kPieceSize) Flush();
  }

  bool Flush() {
    ok_ = ok_ && file_.Write(bytes_);
    bytes_.clear();
    return ok_;
  }

 private:
  static constexpr std::size_t kPieceSize = 64 * 1024;

  platform::OutputFile& file_;
  std::string bytes_;
  bool ok_ = true;
};

// What is a field of a command is read out of that command, as in the model, even if it has an OID of its own.
void ReadFromCommand(const Context& context, const WideString& commandOid, values::PropertyDescriptor& field,
                     values::DescriptorMap& own) {
  const auto tree = context.model.Tree();  // stays while a message is shown
  const values::PropertyDescriptor* inModel = context.model.FindDescriptor(commandOid);
  if (inModel == nullptr) return;
  const WideString path = inModel->Path();
  context.model.WaitForDevice();
  const values::PropertyDescriptor command(path, tree->Find(path), context.device, context.symbols, own);
  field.InitFromCommand(own);
}

void WriteProperty(const Context& context, const WideString& path, const config::ConfigKey& key, WideStringView oid,
                   UnitWriter& writer) {
  // A property of its own, whose value is the device's and no pending edit.
  values::DescriptorMap own;
  context.model.WaitForDevice();
  values::PropertyDescriptor property(path, &key, context.device, context.symbols, own);
  if (const auto field = property.GetCommandField()) ReadFromCommand(context, field->commandOid, property, own);
  writer.Record(path);
  writer.Put(u"\n");
  writer.Record(oid);
  writer.Record(property.GetValue().AsText());
}

}  // namespace

bool WriteConfigTree(const Context& context, WideStringView path, platform::OutputFile& file) {
  struct OpenKey {
    WideString path;
    const config::ConfigKey* key;
    std::size_t next = 0;
  };
  const auto tree = context.model.Tree();
  const config::ConfigKey* root = tree ? tree->Find(path) : nullptr;
  if (root == nullptr) return true;

  UnitWriter writer(file);
  std::vector<OpenKey> open;
  open.push_back({WideString(path), root});
  std::unordered_set<WideString> openPaths{open.back().path};
  while (!open.empty()) {
    OpenKey& parent = open.back();
    if (parent.next == parent.key->Subkeys().size()) {
      openPaths.erase(parent.path);
      open.pop_back();
      continue;
    }
    WideString childPath = model::ChildPath(parent.path, parent.key->Subkeys()[parent.next++]);
    const config::ConfigKey* child = tree->Find(childPath);
    if (child == nullptr) continue;
    const WideStringView oid = child->Value(TextId::kOid);
    if (!oid.empty()) {
      WriteProperty(context, childPath, *child, oid, writer);
    } else if (!openPaths.insert(childPath).second) {
      platform::DebugOutput(base::Format(u"ERROR 6 CKelConfigApp::WriteConfigTree [%s]\r\n", childPath));
    } else {
      open.push_back({std::move(childPath), child});
    }
  }
  return writer.Flush();
}

bool StoreConfig(const Context& context) {
  platform::OutputFile file(u"\\CfgSettings.txt");
  return file.IsOpen() && WriteConfigTree(context, context.model.RootPath(), file) && file.Commit();
}

}  // namespace rules
