// The unit factors the weather reader, the phrasing and the preference reader share.
#pragma once

extern float unit_ft_to_m;      // 0.3048
extern float unit_m_to_ft;      // 1 / 0.3048
extern float unit_nm_to_m;      // 0.3048 * 6076.1155 = 1852
extern float unit_m_to_nm;      // 1 / 1852
extern float unit_sm_per_nm;    // 1.1507795
extern float unit_nm_per_sm;    // 1 / 1.1507795

// Sets the factors; each reciprocal is computed from the stored single-precision factor.
void units_init();
