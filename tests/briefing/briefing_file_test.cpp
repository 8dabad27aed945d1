// The menu commands and the briefing file: about, write, quit, safe replacement.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include "briefing/briefing_file.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "shell/alert.h"
#include "shell/shutdown.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/random.h"
#include "util/text.h"

static std::vector<std::string> alerts;
static void record_box(const char* const lines[4], int32_t kind) {
    alerts.push_back(std::to_string(kind) + "|" + lines[0] + "|" + lines[1] + "|" + lines[2] + "|" + lines[3]);
}

static std::vector<std::string> names_in(const std::string& dir) {
    std::vector<std::string> names;
    DIR* d = opendir(dir.c_str());
    while (dirent* e = readdir(d))
        if (e->d_name[0] != '.') names.push_back(e->d_name);
    closedir(d);
    return names;
}

class BriefingFile : public testing::Test {
  protected:
    void SetUp() override {
        fio_reset();
        dir = test_temp_dir();
        ASSERT_EQ(chdir(dir.c_str()), 0);  // each test case runs in its own process
        alert_set_box(record_box);
        alerts.clear();
        brief_req_reset();
        memset(&station_wx, 0, sizeof station_wx);
        str_copy("untitled.acf", brief_req.aircraft_name);
        brief_req.altitude = 5000.0f;
        sim_set_airports({{"AAAA", "Alpha", 10.0f, 20.0f}, {"BBBB", "Bravo", 11.0f, 20.0f}});
        brief_req.destination = 1;
        str_copy((dir + "metar.rwx").c_str(), wx_file_path);
        test_write_file(dir, "metar.rwx", "AAAA 121856Z 27010KT 9999 15/05 Q1013\n");
        quit_requested = 0;
    }
    void TearDown() override { alert_set_box(nullptr); }
    std::string dir;
};

TEST_F(BriefingFile, WriteComposesFreshAndWritesFourParagraphs) {
    rand_set_state(sim_seed_for({{6, 2}, {6, 2}, {6, 2}}));
    brief_write_file(CMD_WRITE_BRIEFING);
    ASSERT_EQ(alerts.size(), 1u);
    EXPECT_EQ(alerts[0],
              "15|I will now create a file called 'Vocalog.txt' with this briefing in it.|You may print it for "
              "reference during your flight.|This is common practice in real aviation.|");
    std::string text = test_read_file(dir + "Vocalog.txt");
    EXPECT_EQ(text, std::string(brief_req.intro) + "\n\n" + brief_req.dep_wx + "\n\n" + brief_req.enroute_wx +
                        "\n\n" + brief_req.dest_wx + "\n\n");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 8);
    EXPECT_EQ(text.find('\r'), std::string::npos);
    EXPECT_THAT(text, testing::StartsWith("Hello, this is , a untitled, planning a flight from Alpha to Bravo."));
    EXPECT_THAT(brief_req.dep_wx, testing::StartsWith("All right, for your departure, "));

    // A second write replaces the first with a fresh composition; no temporary file stays.
    rand_set_state(sim_seed_for({{6, 5}, {6, 5}, {6, 5}}));
    brief_write_file(CMD_WRITE_BRIEFING);
    std::string second = test_read_file(dir + "Vocalog.txt");
    EXPECT_NE(second, text);
    EXPECT_THAT(second, testing::HasSubstr("\n\nStand by, for your departure, "));
    EXPECT_EQ(names_in(dir).size(), 2u);  // metar.rwx and Vocalog.txt
}

TEST_F(BriefingFile, UnwritableFolderKeepsTheOldFileSilently) {
    test_write_file(dir, "Vocalog.txt", "old briefing\n");
    ASSERT_EQ(chmod(dir.c_str(), 0555), 0);
    // Permissions do not bind the superuser: write as an ordinary user then.
    const bool root = geteuid() == 0;
    if (root) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    brief_write_file(CMD_WRITE_BRIEFING);
    if (root) {
        ASSERT_EQ(seteuid(0), 0);
    }
    chmod(dir.c_str(), 0755);
    EXPECT_EQ(test_read_file(dir + "Vocalog.txt"), "old briefing\n");
    EXPECT_EQ(alerts.size(), 1u);  // only the note before writing
    EXPECT_THAT(brief_req.intro, testing::StartsWith("Hello, this is "));  // the new briefing all the same
}

TEST_F(BriefingFile, FailedWriteLeavesNoHalfFile) {
    test_write_file(dir, "Vocalog.txt", "old briefing\n");
    OutFile f;
    out_open(&f, (dir + "Vocalog.txt").c_str(), false);
    ASSERT_TRUE(out_good(&f));
    out_text(&f, "half a brief");
    EXPECT_EQ(test_read_file(dir + "Vocalog.txt"), "old briefing\n");  // nothing visible until closed
    f.state |= FS_BAD;                                                   // as a failed write leaves it
    out_close(&f);
    EXPECT_FALSE(out_good(&f));
    EXPECT_EQ(test_read_file(dir + "Vocalog.txt"), "old briefing\n");
    EXPECT_EQ(names_in(dir).size(), 2u);  // the temporary file is gone

    // A path that cannot be written reports failure and leaves the stream failed.
    EXPECT_EQ(brief_save((dir + "no folder/Vocalog.txt").c_str()), 0);
    EXPECT_EQ(brief_save((dir + "saved.txt").c_str()), 1);
}

TEST_F(BriefingFile, OtherCommands) {
    brief_write_file(CMD_QUIT);
    EXPECT_EQ(quit_requested, 1);
    EXPECT_TRUE(alerts.empty());

    quit_requested = 0;
    for (int32_t command : {1, 99, 101, 103, -1}) brief_write_file(command);
    EXPECT_EQ(quit_requested, 0);
    EXPECT_TRUE(alerts.empty());
    EXPECT_EQ(names_in(dir).size(), 1u);

    brief_write_file(CMD_ABOUT);
    ASSERT_EQ(alerts.size(), 1u);
    EXPECT_THAT(alerts[0], testing::StartsWith("14|Vocalog"));
    EXPECT_EQ(quit_requested, 0);
}
