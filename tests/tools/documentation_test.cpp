// Runs the class browser on the real plugins. Every declared member has an explanation, and every explained member is
// declared.
#include "documentation/browser.h"
#include "documentation/pages.h"
#include "documentation/texts.h"
#include "documentation/word_texts.h"
#include "language/words.h"

#include "entries/entries.h"
#include "entries/plugin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

using namespace host::documentation;

namespace {

class Documentation : public testing::Test {
protected:
    static void SetUpTestSuite() {
        host::startHost();
        host::loadPlugin(CHROMASIBLING);
        host::loadPlugin(CHROMABRIDGE);
    }
};

bool declares(const ClassPage& page, std::string_view member) {
    for (const Section& section : page.sections) {
        for (const MemberPage& declared : section.members)
            if (declared.name == member) return true;
    }
    return false;
}

} // namespace

TEST_F(Documentation, ExplainsEveryClassAndMember) {
    for (const ClassPage& page : pagesOf(host::registry())) {
        EXPECT_FALSE(page.text.empty()) << page.info->name();
        for (const Section& section : page.sections) {
            for (const MemberPage& member : section.members)
                EXPECT_FALSE(member.text.empty()) << page.info->name() << "." << member.name;
        }
    }
}

TEST_F(Documentation, ExplainsOnlyDeclaredMembers) {
    for (const ClassText& text : classTexts()) {
        const host::ClassInfo* const info = host::registry().find(text.name);
        ASSERT_NE(info, nullptr) << text.name;
        const ClassPage page = pageOf(*info);
        for (const MemberText& member : text.members)
            EXPECT_TRUE(declares(page, member.name)) << text.name << "." << member.name;
    }
}

TEST_F(Documentation, ExplainsEveryWordOfTheLanguageOnce) {
    for (const MemberPage& function : functionPages())
        EXPECT_FALSE(function.text.empty()) << function.name;
    std::string pages = " ";
    for (const WordText& text : wordTexts())
        pages += std::string(text.words) + " ";
    for (const host::language::Word& word : host::language::words()) {
        const bool isFunction = word.kind == host::language::WordKind::function;
        EXPECT_EQ(findWordText(word.name) == nullptr, isFunction) << word.name;
        const std::size_t place = pages.find(" " + std::string(word.name) + " ");
        if (place != std::string::npos) pages.erase(place, word.name.size() + 1);
    }
    EXPECT_EQ(pages, " ") << "explained twice, or not a word of the language";
}

TEST_F(Documentation, BreaksLinesAtWordsForAnyWidth) {
    for (const std::size_t width : {40u, 72u}) {
        std::ostringstream page;
        browse(host::registry(), "NSColorZRX", "", width, page);
        browse(host::registry(), "", "", width, page);
        std::istringstream lines(page.str());
        std::string line;
        std::size_t longest = 0;
        while (std::getline(lines, line)) {
            const std::string_view text = std::string_view(line).substr(std::min(line.find_first_not_of(' '), line.size()));
            EXPECT_TRUE(line.size() <= width || text.find(' ') == std::string_view::npos) << line;
            longest = std::max(longest, line.size());
        }
        EXPECT_GT(longest, width - 8);
    }
}
