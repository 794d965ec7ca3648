// The example host in C, as a person runs it.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace {

std::string outputOf(const std::string& arguments, int& exitCode) {
    FILE* const pipe = popen((MINIMAL_HOST " " + arguments + " 2>&1").c_str(), "r");
    std::string output;
    std::array<char, 1024> buffer;
    while (const std::size_t count = pipe ? std::fread(buffer.data(), 1, buffer.size(), pipe) : 0)
        output.append(buffer.data(), count);
    exitCode = pipe ? WEXITSTATUS(pclose(pipe)) : -1;
    return output;
}

} // namespace

TEST(MinimalHost, ReadsAColourAndCatchesAnException) {
    int exitCode = -1;
    EXPECT_EQ(outputOf("'" CHROMABRIDGE "'", exitCode),
              "red 1.000, green 0.502, blue 0.000, alpha 0.800\n"
              "OutOfBoundsException: Invalid values. Please pass values in range 0.0 to 1.0.\n");
    EXPECT_EQ(exitCode, 0);
}

TEST(MinimalHost, SaysWhatItCannotLoad) {
    int exitCode = -1;
    EXPECT_NE(outputOf("/no/such/library.so", exitCode).find("/no/such/library.so"), std::string::npos);
    EXPECT_EQ(exitCode, 2);
}
