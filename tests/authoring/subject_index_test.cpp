#include "authoring/checks/subject_index.h"

#include "authoring/checks/survey.h"
#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

#include <map>

namespace {

using authoring::Subject;
using authoring::SubjectIndex;

TEST(SubjectIndex, HoldsAllOfATextInTheOrderInWhichTheyWereAdded) {
  std::string groups;
  for (int i = 0; i < 600; ++i) groups += "<GROUP name=\"E" + std::to_string(i) + "\"/>";
  tests::StorageFolder folder;
  const auto configuration = folder.WriteMenu(groups).Load();
  const authoring::InTerminal terminal(*configuration);
  const authoring::Survey survey(*configuration);
  // Many texts that only one has, one that many have, and some in between.
  std::map<WideString, std::vector<const Subject*>> plain;
  SubjectIndex index;
  std::size_t number = 0;
  for (const Subject& subject : survey.Subjects()) {
    const std::size_t text = number % 3 == 0 ? number : number % 3 == 1 ? 1000 : 2000 + number % 7;
    const auto place = plain.try_emplace(base::FromUtf8(std::to_string(text))).first;
    place->second.push_back(&subject);
    index.Add(place->first, subject);
    ++number;
  }
  index.Sort();
  std::size_t shared = 0;
  for (const auto& [text, subjects] : plain) {
    const SubjectIndex::Group found = index.Find(text);
    EXPECT_EQ(subjects, std::vector<const Subject*>(found.begin(), found.end())) << base::ToUtf8(text);
    if (subjects.size() > 1) ++shared;
  }
  EXPECT_EQ(shared, index.Shared().size());
  EXPECT_TRUE(index.Find(u"nobody's").empty());
  for (std::size_t i = 1; i < index.Shared().size(); ++i) {
    EXPECT_LT(index.Shared()[i - 1].front(), index.Shared()[i].front());
  }
}

TEST(SubjectIndex, OfNothingFindsNothing) {
  SubjectIndex index;
  index.Sort();
  EXPECT_TRUE(index.Find(u"x").empty());
  EXPECT_TRUE(index.Shared().empty());
}

}  // namespace
