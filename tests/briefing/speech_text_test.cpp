// The spoken text of briefings: each reading rule, and whole briefings of the sample world read
// end to end.
#include "tests/briefing/briefing_tests.h"

#include <cstdlib>

#include "briefing/speech_text.h"
#include "briefing/world.h"
#include "util/folders.h"

class SpeechText : public testing::Test {
  protected:
    void SetUp() override {
        folders_fill(sim.c_str(), "");
        brief_load_world();
    }
    // The written and the spoken briefing of one route, the four paragraphs joined by "\n".
    void compose(const char* from, const char* to, const char* aircraft, float altitude, uint32_t seed) {
        ASSERT_EQ(apt_find_code(from, 1, &brief_req.departure), 1);
        ASSERT_EQ(apt_find_code(to, 1, &brief_req.destination), 1);
        brief_req.altitude = altitude;
        acf_reset();
        brief_req.speed = 0;
        if (aircraft[0]) {
            str_copy((sim + "Aircraft/" + aircraft).c_str(), brief_req.aircraft_path);
            str_copy(aircraft, brief_req.aircraft_name);
            ASSERT_EQ(acf_read(0, brief_req.aircraft_path), 1);
            brief_req.speed = speed_from_aircraft();
        }
        rand_set_state(seed);
        brief_compose();
        written = spoken = "";
        for (const char* p : {brief_req.intro, brief_req.dep_wx, brief_req.enroute_wx, brief_req.dest_wx}) {
            char out[SPEECH_TEXT_SIZE];
            EXPECT_TRUE(brief_spoken_text(p, out, sizeof out));
            written += std::string(p) + "\n";
            spoken += std::string(out) + "\n";
        }
    }
    std::string sim = std::getenv("VOCALOG_SOURCE_DIR") + std::string("/data/sim/");
    std::string written, spoken;
};

// Each reading rule on pieces of briefings as the composer writes them (the quirks included),
// or as other worlds could.
TEST(SpeechTextRules, EachReading) {
    const struct { const char *written, *spoken; } rows[] = {
        {"this is N172SP, a C172SP, planning",
         "this is November one seven two Sierra Papa, a C one seventy-two S P, planning"},
        {"this is G-ABCD, a Baron58, a KingAir350, a CitationCJ4, a B707, a A320neo, a Cessna_172 (BA 709)",
         "this is Golf Alpha Bravo Charlie Delta, a Baron fifty-eight, a King Air three fifty, a Citation C J four, "
         "a B seven oh seven, a A three twenty neo, a Cessna one seventy-two (BA seven hundred nine)"},
        {"will be 2124 zulu, estimating 11.6 hours enroute at 12500 feet,",
         "will be two one two four zulu, estimating eleven point six hours enroute at one two thousand five hundred "
         "feet,"},
        {"at 905 zulu, at 0 feet, at 5555 feet, at 10000 feet, at 99999 feet",
         "at zero niner zero five zulu, at zero feet, at five five five five feet, at one zero thousand feet, at niner "
         "niner niner niner niner feet"},
        {"Temperature 1 C, dewpoint -7 C. OK, Wind 10 at 13, barometric pressure 3009.",
         "Temperature one degree Celsius, dewpoint minus seven degrees Celsius. OK, Wind zero one zero at one three, "
         "barometric pressure three zero zero niner."},
        {"Wind 250 at 16 gust 29, barometric", "Wind two five zero at one six gust two niner, barometric"},
        {"Wind 0 at 5, visibility 21 miles. Temperature -1 C, dewpoint -40 C.",
         "Wind zero zero zero at five, visibility twenty-one miles. Temperature minus one degree Celsius, dewpoint minus "
         "forty degrees Celsius."},
        {"skies 4900 scattered, 10800visibility 1 miles in haze.",
         "skies four thousand nine hundred scattered, ten thousand eight hundred, visibility one mile in haze."},
        {"skies 9900000000 scattered, 0 overcast, 100 broken,",
         "skies nine billion nine hundred million scattered, zero overcast, one hundred broken,"},
        {"from Homey (Area 51) Airport to Gangneung Airport (K-18). 22nd 101st 11th 112th 3rd 1000000",
         "from Homey (Area fifty-one) Airport to Gangneung Airport (K-eighteen). twenty-second one hundred first "
         "eleventh one hundred twelfth third one million"},
        {"Enroute lets look look at this one, at 2050 zulu,",
         "Enroute let's look at this one, at two zero five zero zulu,"},
    };
    for (const auto& r : rows) {
        char out[SPEECH_TEXT_SIZE];
        EXPECT_TRUE(brief_spoken_text(r.written, out, sizeof out));
        EXPECT_STREQ(out, r.spoken);
    }
    char small[12];
    EXPECT_FALSE(brief_spoken_text("at 2128 zulu", small, sizeof small));
    EXPECT_STREQ(small, "at two one ");
}

TEST_F(SpeechText, WholeBriefingsReadEndToEnd) {
    compose("KSFO", "KLAX", "", 5000, 7);  // the briefing of `make run`
    EXPECT_EQ(spoken,
              "Hello, this is , a untitled, planning a flight from San Francisco International Airport to Los Angeles "
              "International Airport. Estimated time of departure will be two one two eight zulu, at five thousand feet, "
              "and requesting a standard.\n"
              "Let's see, for your departure area, at two zero five eight zulu, San Francisco International Airport is "
              "reporting clear skies, visibility nine miles. OK... Temperature twelve degrees Celsius, dewpoint seven "
              "degrees Celsius. For the winds... Wind calm, barometric pressure two niner eight five.\n"
              "On the way, at two zero five zero zulu, San Luis County Regional Airport is reporting skies five thousand "
              "five hundred scattered, thirteen thousand one hundred, visibility nine miles. Ah, Temperature ten degrees "
              "Celsius, dewpoint four degrees Celsius. Now for the winds... Wind light and variable, barometric pressure "
              "two niner five niner.\n"
              "For your destination, hmmm, at two zero five five zulu, Los Angeles International Airport is reporting "
              "clear skies, visibility eight miles. Lemme see here... Temperature eight degrees Celsius, dewpoint one "
              "degree Celsius. Let's see what the wind is doing... Wind light and variable, barometric pressure three "
              "zero two one.\n");
    // Routes across the whole world, every aircraft: no digit is left for the speech engine.
    const char* const aircraft[5] = {"", "C172SP.acf", "Baron58.acf", "KingAir350.acf", "CitationCJ4.acf"};
    const int32_t n = apt_table.airport_count + 1;
    for (int32_t i = 0; i < n; i += 9) {
        const int32_t j = (i * 31 + 17) % n;
        compose(apt_table.apt_code[i], apt_table.apt_code[j], aircraft[i % 5], float(i * 20 % 45000), uint32_t(i));
        ASSERT_EQ(spoken.find_first_of("0123456789"), std::string::npos) << written << spoken;
    }
}
