#include "tests/app/canary.h"

#include "base/utf8.h"
#include "simulator/host_snapshot.h"
#include "simulator/text_file.h"
#include "ui/edit_templates.h"

#include <algorithm>
#include <fstream>

namespace tests {
namespace {

namespace fs = std::filesystem;
using simulator::ControlPicture;

// As long as the shortest secret may be.
constexpr WideStringView kMarker = u"Qz7Xw9";
constexpr WideStringView kMarkerInHex = u"517A37587739";

const struct {
  const char* oid;
  const char* type;
  WideStringView title;      // of its edit dialog
  const char* defaultValue;  // nullptr: it has none that is a secret
} kSecrets[] = {
    {"1.2.840.10036.1.3.1.2.2", "Hex", u"Key Value", nullptr},
    {"1.2.840.10036.4242.1.4", "Password", u"User Password", "changeme"},
    {"1.2.840.10036.4242.1.6", "Hex", u"Provision Key", nullptr},
    {"cfg|80211PM|Warehouse|PreSharedKey", "Hex32", u"Profile Key", nullptr},
    {"cfg|80211PM|Warehouse|PassPhrase", "Hex32", u"Profile Phrase", nullptr},
    {"cfg|80211PM|Yard|PreSharedKey", "Hex32", u"Profile Key", nullptr},
    {"cfg|80211PM|Yard|PassPhrase", "Hex32", u"Profile Phrase", nullptr},
    {"cfg|80211PM|Office|PreSharedKey", "Hex32", u"Profile Key", nullptr},
    {"cfg|80211PM|Office|PassPhrase", "Hex32", u"Profile Phrase", nullptr},
    {"1.3.6.1.4.1.4242.10.5.1.2.0", "Password", u"Admin Password", "vx40admin"},
    {"1.3.6.1.4.1.4242.10.5.1.3.0", "Password", u"Driver Password", "1234"},
    {"1.3.6.1.4.1.4242.10.5.2.0", "Octet String", u"Service PIN", "000000"},
};

bool IsOfSecretType(std::string_view line) {
  return line.find("\tPassword\t") != std::string_view::npos || line.find("\tHex\t") != std::string_view::npos ||
         line.find("\tHex32\t") != std::string_view::npos;
}

std::string PlantedLine(const char* oid, const char* type) {
  return std::string(oid) + "\t" + type + "\t" + base::ToUtf8(kMarker) + "\n";
}

// Empty, or the line of a secret that has no row above, or the row that has no line.
std::string UnknownSecret(const std::string& device) {
  for (const auto& secret : kSecrets) {
    if (device.find("\n" + std::string(secret.oid) + "\t") == std::string::npos) return secret.oid;
  }
  for (std::size_t start = 0, end = 0; start < device.size(); start = end + 1) {
    end = std::min(device.find('\n', start), device.size());
    const std::string_view line = std::string_view(device).substr(start, end - start);
    const auto isItsLine = [line](const auto& secret) { return line.starts_with(std::string(secret.oid) + "\t"); };
    if (IsOfSecretType(line) && std::none_of(std::begin(kSecrets), std::end(kSecrets), isItsLine)) {
      return std::string(line);
    }
  }
  return {};
}

// How often `text` was there.
int Replace(std::string& in, const std::string& text, const std::string& by) {
  int count = 0;
  for (std::size_t at = in.find(text); at != std::string::npos; at = in.find(text, at + by.size()), ++count) {
    in.replace(at, text.size(), by);
  }
  return count;
}

bool IsSecretsOwnField(const simulator::WindowPicture& window, const ControlPicture& control) {
  const auto isItsTitle = [&window](const auto& secret) { return secret.title == window.title; };
  return control.kind == ControlPicture::Kind::kEdit && control.id == ui::kTextEntryId &&
         std::any_of(std::begin(kSecrets), std::end(kSecrets), isItsTitle);
}

}  // namespace

std::string PlantSecrets(const fs::path& root) {
  const auto device = simulator::ReadTextFile(root / "device.txt");
  if (!device) return "there is no device.txt";
  if (const std::string unknown = UnknownSecret(*device); !unknown.empty()) return unknown;
  for (const char* file : {"Windows/ovu.xml", "registry.reg"}) {
    auto text = simulator::ReadTextFile(root / file);
    if (!text) return std::string("there is no ") + file;
    const bool isXml = file == std::string_view("Windows/ovu.xml");
    for (const auto& secret : kSecrets) {
      if (secret.defaultValue == nullptr) continue;
      const std::string before = isXml ? "<DefVal>" : "\"DefVal\"=\"";
      const std::string after = isXml ? "</DefVal>" : "\"";
      if (Replace(*text, before + secret.defaultValue + after, before + base::ToUtf8(kMarker) + after) != 1) {
        return std::string(file) + " has not one default " + secret.defaultValue;
      }
    }
    std::ofstream(root / file, std::ios::binary) << *text;
  }
  PlantSecretsAgain(root);
  return {};
}

// Of two lines for one value the last counts.
void PlantSecretsAgain(const fs::path& root) {
  std::ofstream device(root / "device.txt", std::ios::binary | std::ios::app);
  for (const auto& secret : kSecrets) device << PlantedLine(secret.oid, secret.type);
}

bool HasSecret(WideStringView text) {
  return text.find(kMarker) != WideStringView::npos || base::ToUpper(text).find(kMarkerInHex) != WideString::npos;
}

std::string SecretOnScreen() {
  for (const auto& window : simulator::TakeScreenPicture().windows) {
    if (HasSecret(window.title)) return base::ToUtf8(window.title);
    for (const ControlPicture& control : window.controls) {
      if (HasSecret(control.text) && !IsSecretsOwnField(window, control)) {
        return base::ToUtf8(window.title) + ": " + base::ToUtf8(control.text);
      }
      for (const WideString& line : control.lines) {
        if (HasSecret(line)) return base::ToUtf8(window.title) + ": " + base::ToUtf8(line);
      }
    }
  }
  return {};
}

}  // namespace tests
