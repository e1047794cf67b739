#include "rules/config_store.h"

#include "base/string_table.h"
#include "model/child_key.h"
#include "model/key_walk.h"

#include <string>

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
  const config::ConfigKey* key = inModel->Key();
  context.model.WaitForDevice();
  const values::PropertyDescriptor command(key, context.device, context.symbols, own);
  field.InitFromCommand();
}

void WriteProperty(const Context& context, const config::ConfigKey& key, WideStringView oid, UnitWriter& writer) {
  // A property of its own, whose value is the device's and no pending edit.
  values::DescriptorMap own;
  context.model.WaitForDevice();
  values::PropertyDescriptor property(&key, context.device, context.symbols, own);
  if (const auto field = property.GetCommandField()) ReadFromCommand(context, field->commandOid, property, own);
  writer.Record(property.Path());
  writer.Put(u"\n");
  writer.Record(oid);
  writer.Record(property.GetValue().AsText());
}

}  // namespace

bool WriteConfigTree(const Context& context, WideStringView path, platform::OutputFile& file) {
  const auto tree = context.model.Tree();
  const config::ConfigKey* root = tree ? tree->Find(path) : nullptr;
  if (root == nullptr) return true;

  UnitWriter writer(file);
  model::KeyWalk walk(u"WriteConfigTree");
  walk.Enter(*root, path);
  while (const auto step = walk.Next()) {
    const config::ConfigKey* key = model::FindChild(*tree, step->parent, step->name);
    if (key == nullptr) continue;
    const WideStringView oid = key->Value(TextId::kOid);
    if (!oid.empty()) {
      WriteProperty(context, *key, oid, writer);
    } else if (!walk.LeadsBack(*key, step->name)) {
      walk.Enter(*key, step->name);
    }
  }
  return writer.Flush();
}

bool StoreConfig(const Context& context) {
  platform::OutputFile file(u"\\CfgSettings.txt");
  return file.IsOpen() && WriteConfigTree(context, context.model.RootPath(), file) && file.Commit();
}

}  // namespace rules
