// A storage whose utility has every kind of screen: each editor, the text page, and a question.
#pragma once

namespace tests {

inline constexpr const char* kEveryScreen = R"(<GROUP name="R"><DisplayName>Main Menu</DisplayName>
<GROUP name="Text"><DisplayName>Text</DisplayName><OID>1.1</OID><Type>Integer</Type><Range>1,9</Range></GROUP>
<GROUP name="Choice"><DisplayName>Choice</DisplayName><ShortDesc>Which</ShortDesc><OID>1.2</OID><Type>Integer</Type>
<ChoiceFmt>1#One|2#Two|3#Three|4#Four</ChoiceFmt></GROUP>
<GROUP name="Date"><DisplayName>Date</DisplayName><OID>1.3</OID><Type>Integer</Type><SubType>Date</SubType></GROUP>
<GROUP name="Address"><DisplayName>Address</DisplayName><OID>1.4</OID><Type>IP Address</Type></GROUP>
<GROUP name="Summary"><DisplayName>Summary</DisplayName><Function>Summary</Function></GROUP>
<GROUP name="Restore"><DisplayName>Restore</DisplayName><Function>RestoreDefaults</Function></GROUP></GROUP>)";
inline constexpr const char* kEveryScreensDevice =
    "1.1\tInteger\t5\n1.2\tInteger\t2\n1.3\tInteger\t20240315\n1.4\tIP Address\t10.0.0.1\n";

}  // namespace tests
