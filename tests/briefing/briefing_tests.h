// What the briefing tests share: GoogleTest, the briefing core's tables, the simulator-file
// writers and the matchers every file uses.
#pragma once
#include <gmock/gmock.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "base/alert.h"
#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "briefing/weather.h"
#include "tests/support/sim_files.h"
#include "tests/support/test_files.h"
#include "util/file_reader.h"
#include "util/random.h"
#include "util/text.h"

using testing::HasSubstr;
using testing::StartsWith;
