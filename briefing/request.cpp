// The shared briefing request record.
#include "briefing/request.h"

#include <cstring>

BriefingRequest brief_req;

void brief_req_reset() { memset(&brief_req, 0, sizeof brief_req); }
