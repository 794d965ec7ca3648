// The class browser over the real plugins: everything declared is explained, everything explained is declared, and the page
// in docs/ is what the browser writes today.
#include "documentation/browser.h"
#include "documentation/grammar.h"
#include "documentation/pages.h"
#include "documentation/texts.h"
#include "documentation/word_texts.h"
#include "language/library/functions.h"
#include "language/reading/lexer.h"

#include "model/entries.h"
#include "model/plugin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
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
        for (const MemberPage& declared : section.members) {
            if (declared.name == member) return true;
        }
    }
    return false;
}

std::string browsed(const char* className, const char* member) {
    std::ostringstream out;
    try {
        browse(host::registry(), className, member, usualWidth, out);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return out.str();
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

TEST_F(Documentation, ExplainsNothingThatIsNotDeclared) {
    for (const ClassText& text : classTexts()) {
        const host::ClassInfo* const info = host::registry().find(text.name);
        ASSERT_NE(info, nullptr) << text.name;
        const ClassPage page = pageOf(*info);
        for (const MemberText& member : text.members)
            EXPECT_TRUE(declares(page, member.name)) << text.name << "." << member.name;
    }
}

TEST_F(Documentation, ExplainsEveryWordOfTheLanguage) {
    for (const MemberPage& function : functionPages())
        EXPECT_FALSE(function.text.empty()) << function.name;
    for (const std::string_view keyword : host::language::keywordNames())
        EXPECT_NE(findWordText(keyword), nullptr) << keyword;
    for (const std::string& word : wordNames()) {
        const auto keywords = host::language::keywordNames();
        const bool isKeyword =
            std::any_of(keywords.begin(), keywords.end(), [&](std::string_view keyword) { return keyword == word; });
        const bool isType = host::typeNamed(word).kind != host::Kind::object || word == "Object";
        EXPECT_TRUE(isKeyword || isType || word == "Array" || word == "UBound" || word == "LBound") << word;
        EXPECT_TRUE(host::language::findFunctions(word).empty()) << word << " has two pages";
    }
}

TEST_F(Documentation, TheEditorsGrammarIsUpToDate) {
    std::ostringstream kept, written;
    kept << std::ifstream(GRAMMAR).rdbuf();
    writeGrammar(host::registry(), written);
    EXPECT_EQ(kept.str(), written.str()) << "chromahost grammar > editors/chromabridge.tmLanguage.json";
}

TEST_F(Documentation, ReferenceIsUpToDate) {
    std::ostringstream kept, written;
    kept << std::ifstream(REFERENCE).rdbuf();
    writeReference(host::registry(), written);
    EXPECT_EQ(kept.str(), written.str()) << "chromahost browse --markdown > docs/reference.md";
}

TEST_F(Documentation, BrowsesOverloadsAndInheritedMembersAndGuessesWhatIsMeant) {
    EXPECT_EQ(browsed("nscolorlistzrx", "CREATE"),
              "NSColorListZRX, Methods\n"
              "  Create(name as string) as boolean\n"
              "  Create(name as string, path as string) as boolean\n"
              "      Fills the object with a new list of that name, or with what is in a file; False, and an empty\n"
              "      object, when that cannot be read.\n");
    EXPECT_EQ(browsed("NSExceptionZRX", "Message").rfind("RuntimeException, Properties\n", 0), 0u);
    EXPECT_EQ(browsed("NSColour", "x"), "there is no class NSColour; did you mean NSColorZRX?");
    EXPECT_EQ(browsed("NSColorZRX", "getRBG"), "NSColorZRX has no member getRBG; did you mean getRGB?");
    EXPECT_EQ(browsed("FolderItem", "zzzzzz"), "FolderItem has no member zzzzzz");
    EXPECT_EQ(browsed("len", ""), "  Len(text as string) as integer\n      How many characters a text has.\n");
    EXPECT_EQ(browsed("DownTo", ""), browsed("For", ""));
    EXPECT_EQ(browsed("For", "").rfind("  For name [As Type] = first To last [Step step]\n    statements\n  Next\n", 0), 0u);
    EXPECT_EQ(browsed("redcolor", "").rfind("NSColorZRX, Shared methods\n  redColor as NSColorZRX\n", 0), 0u);
    EXPECT_EQ(browsed("Lenn", ""), "there is nothing of the name Lenn; did you mean Len?");
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
