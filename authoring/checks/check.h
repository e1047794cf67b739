// One kind of finding: its name, what it says by itself, and the function that looks for it.
#pragma once

#include "authoring/checks/survey.h"
#include "authoring/finding.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace authoring {

struct Check;

// Takes the findings of one check.
class Findings {
 public:
  Findings(const Configuration& configuration, std::vector<Finding>& all);
  // What is added from now on is this check's, one of the table.
  void Begin(const Check& check);
  // Nobody reads more of one kind, and each takes its time to be placed.
  static constexpr std::size_t kMostOfAKind = 1000;
  // So many are there of this kind that suggestions are no more worth their time.
  bool AreMany() const { return *count_ > 20; }

  // About an entry, one of its attributes, or a place in that attribute's text.
  void Add(const Subject& subject, std::string sentence, std::string mend);
  void Add(const Subject& subject, WideStringView attribute, std::string sentence, std::string mend);
  void Add(const Subject& subject, WideStringView attribute, std::size_t offset, std::string sentence,
           std::string mend);
  void Add(const Subject& subject, Attribute attribute, std::string sentence, std::string mend) {
    Add(subject, NameOf(attribute), std::move(sentence), std::move(mend));
  }
  // About an element of the document inside an entry.
  void AddAt(const Subject& subject, std::uint32_t element, std::string sentence, std::string mend);
  // About a place anywhere.
  void AddAt(Position position, std::string sentence, std::string mend);

 private:
  Finding* New(std::string sentence, std::string mend);
  Finding* New(const Subject& subject, std::string sentence, std::string mend);

  const Configuration& configuration_;
  std::vector<Finding>& all_;
  const Check* check_ = nullptr;
  std::vector<std::size_t> counts_;  // of each check in the table
  std::size_t* count_ = nullptr;     // of the present one
};

struct Check {
  std::string_view id;
  Severity severity;
  std::string_view title;  // a few words
  // One of these. Of entries only those are looked at that have one of `attributes`; with none: all.
  void (*ofEntry)(const Subject& subject, Findings& findings) = nullptr;
  AttributeSet attributes = {};
  void (*ofAll)(const Survey& survey, Findings& findings) = nullptr;
  bool isProof = false;

  constexpr Check(std::string_view name, Severity kind, std::string_view words,
                  void (*find)(const Subject& subject, Findings& findings), AttributeSet among = {})
      : id(name), severity(kind), title(words), ofEntry(find), attributes(among) {}
  constexpr Check(std::string_view name, Severity kind, std::string_view words,
                  void (*find)(const Survey& survey, Findings& findings))
      : id(name), severity(kind), title(words), ofAll(find) {}
  // Found elsewhere.
  constexpr Check(std::string_view name, Severity kind, std::string_view words, bool byProofs = false)
      : id(name), severity(kind), title(words), isProof(byProofs) {}
};

// In the order of their page. Those without a function are found elsewhere: while loading, by the proofs, among the
// comments that silence.
std::span<const Check> Checks();
// Null for an id that no check has.
const Check* FindCheck(std::string_view id);

// --- for the sentences ---

// Whether a number may be a value of a SubType: a day of the calendar, a time of the clock; of none, any is.
bool IsDateOrTime(const Subject& subject, WideStringView digits);
// In double quotes; a long text is cut.
std::string Quoted(WideStringView text);
// "Write \"X\"." for the nearest name, else `otherwise`.
std::string MendByNearest(WideStringView name, std::span<const WideStringView> names, std::string otherwise);

}  // namespace authoring
