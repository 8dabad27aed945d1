// The unit factors the weather reader, the phrasing and the preference reader share.
#include "util/units.h"

float unit_ft_to_m, unit_m_to_ft, unit_nm_to_m, unit_m_to_nm, unit_sm_per_nm, unit_nm_per_sm;

void units_init() {
    unit_ft_to_m = 0.3048f;
    unit_m_to_ft = (float)(1.0 / (double)unit_ft_to_m);
    unit_nm_to_m = (float)(0.3048 * 6076.1155);
    unit_m_to_nm = (float)(1.0 / (double)unit_nm_to_m);
    unit_sm_per_nm = 1.1507795f;
    unit_nm_per_sm = (float)(1.0 / (double)unit_sm_per_nm);
}

static const bool units_set = (units_init(), true);
