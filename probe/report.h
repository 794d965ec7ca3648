// What the probe found, entry by entry.
#pragma once

#include <string>
#include <vector>

namespace probe {

struct Finding {
    std::string entry;
    bool isOffered;
    bool isAsked; // whether what was needed to ask was there
    std::vector<std::string> complaints;
};

class Report {
public:
    // Opens the entry's finding, again if it was open before; complaints go to it from now on. On a terminal it says so, so
    // that what a crashing host said last names the cause.
    void begin(const std::string& entry, bool isOffered);
    void complain(const std::string& what);
    void returned(); // a call of the entry, of which no more can be said
    void expect(bool holds, const std::string& what) {
        returned();
        if (!holds) complain(what);
    }
    void end();

    std::size_t complaints() const;
    std::string text() const; // for a person
    std::string json() const;

    double hostVersion = 0.0;

private:
    std::vector<Finding> findings_;
    std::size_t current_ = 0;
};

// Where the report goes is the environment's to say: CHROMAPROBE_REPORT names a file, without it stderr; CHROMAPROBE_JSON,
// when set, makes it JSON.
void publish(const Report& report);

} // namespace probe
