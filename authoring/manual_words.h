// What a property and a command are, in the words of the people at the terminal.
#pragma once

#include "authoring/trial.h"

#include <string>

namespace authoring {

// "one of several choices", "a number, to be read only"; empty for what people need not know.
std::string KindInWords(const values::PropertyDescriptor& property);
// "from 1 to 99", "0 or from 10 to 600".
std::string RangeInWords(WideStringView range);
// What a command does; empty for an entry that is none, or that starts a program.
std::string FunctionInWords(WideStringView function);

// What restoring the defaults gives the property: its own default, or for a field that of its command's columns. Empty:
// it has none, or it is a secret.
std::string FactoryValueInWords(const Trial& trial, const values::PropertyDescriptor& property,
                                const config::ConfigKey& key);

}  // namespace authoring
