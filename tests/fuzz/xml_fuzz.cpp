// XML documents: any bytes are refused with a reason or give a tree whose texts can all be read.
#include "config/data_store.h"
#include "config/shared_text.h"
#include "config/xml_document.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  auto text = config::Utf8Text::Read([&](const config::Utf8Text::Place& place) {
    std::copy_n(bytes, size, place(size));
    return true;
  });
  auto document = std::make_shared<config::XmlDocument>();
  if (!document->SetDocument(std::move(*text))) return document->Index().Count() == 1 ? 0 : (std::abort(), 1);
  document->FindElement(u"GROUP");
  const WideString root = document->Attribute(u"name");
  document->FindGroup(root + u"\\a");
  const config::PDataStore tree(root, document, {}, config::PDataStore::kWholeTree);
  if (tree.Count() == 0 || tree.Find(root) == nullptr) std::abort();
  for (const WideStringView name : tree.Find(root)->Subkeys()) {
    const config::ConfigKey* const key = tree.Find(root + u"\\" + WideString(name));
    if (key == nullptr) std::abort();
    for (const config::NamedText& value : key->Values()) {
      if (key->Value(value.name) != value.text) std::abort();
    }
  }
  return 0;
}
