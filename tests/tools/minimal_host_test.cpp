// The example hosts, as a person runs them.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace {

std::string outputOf(const std::string& command, int& exitCode) {
    FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
    std::string output;
    std::array<char, 1024> buffer;
    while (const std::size_t count = pipe ? std::fread(buffer.data(), 1, buffer.size(), pipe) : 0)
        output.append(buffer.data(), count);
    exitCode = pipe ? WEXITSTATUS(pclose(pipe)) : -1;
    return output;
}

} // namespace

TEST(MinimalHost, ReadsAColourTakesValuesOfEachKindAndCatchesAnException) {
    int exitCode = -1;
    const std::string output = outputOf(MINIMAL_HOST " '" CHROMABRIDGE "'", exitCode);
    EXPECT_EQ(output.rfind("red 1.000, green 0.502, blue 0.000, alpha 0.800\ncomponents 1.000, 0.502, 0.000, 0.800\n", 0),
              0u)
        << output;
#ifdef HAS_PROFILES
    EXPECT_NE(output.find("\nprofile of 484 bytes, a \"acsp\"\n"), std::string::npos) << output;
#endif
    EXPECT_NE(output.find("\nOutOfBoundsException: Invalid values. Please pass values in range 0.0 to 1.0.\n"),
              std::string::npos)
        << output;
    EXPECT_EQ(exitCode, 0);
}

TEST(MinimalHost, SaysWhatItCannotLoad) {
    int exitCode = -1;
    EXPECT_NE(outputOf(MINIMAL_HOST " /no/such/library.so", exitCode).find("/no/such/library.so"), std::string::npos);
    EXPECT_EQ(exitCode, 2);
}

#ifdef PYTHON_HOST
TEST(PythonHost, ReadsByReferencePassesAStringCatchesAnExceptionAndGivesAllBack) {
    int exitCode = -1;
    EXPECT_EQ(outputOf(PYTHON_HOST " '" CHROMABRIDGE "'", exitCode),
              "red 1.000, green 0.500, blue 0.000, alpha 0.800\n"
              "white 0.692\n"
              "OutOfBoundsException: Invalid values. Please pass values in range 0.0 to 1.0.\n"
              "0 values left\n");
    EXPECT_EQ(exitCode, 0);
}
#endif
