// The configuration that a command is about, and the entry in it.
#pragma once

#include "authoring/configuration.h"
#include "authoring/trial.h"
#include "tools/kelconf_program.h"

#include <memory>
#include <string>

namespace tools {

struct SourceOptions {
  std::string path = ".";
  std::string source;  // the utility's command line
};

enum class Format { kText, kJson };

// --source.
void AddSourceLine(Command& command, std::string& source);
// FOLDER|FILE.xml|FILE.reg and --source.
void AddSourceOptions(Command& command, SourceOptions& options);
void AddFormatOption(Command& command, Format& format);

// Null, after it was said on standard error why.
std::unique_ptr<authoring::Configuration> LoadConfiguration(const SourceOptions& options, Streams& streams);
// The same, and the document must be well formed.
std::unique_ptr<authoring::Configuration> LoadWellFormed(const SourceOptions& options, Streams& streams);

// The one item that `text` means. Null when there is none or more: then those that it may mean were listed on standard
// error.
model::MenuItem* FindOneEntry(authoring::Trial& trial, const std::string& text, Streams& streams);

// "file:line:column", "file:line" or "file".
std::string ToText(const authoring::Position& position);

}  // namespace tools
