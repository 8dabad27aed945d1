// The design space's placement globals and the fit of the design space into the window.
#include "graphics/design_space.h"

float ui_scale = 1.0f;
float ui_margin_x = 0.0f;
float ui_margin_y = 0.0f;
float panel_x = 0.0f;
float panel_y = 0.0f;
float panel_w = DESIGN_W;
float panel_h = DESIGN_H;

void design_space_fit() {
    float sx = disp_width / DESIGN_W;
    float sy = disp_height / DESIGN_H;
    ui_scale = sx < sy ? sx : sy;
    ui_margin_x = 0.0f;
    ui_margin_y = 0.0f;
    // Extra width is split between both sides; extra height lies above the design space.
    if (disp_width > DESIGN_W) ui_margin_x = (disp_width / ui_scale - DESIGN_W) * 0.5f;
    if (disp_height > DESIGN_H) ui_margin_y = disp_height / ui_scale - DESIGN_H;
}

void design_space_reset() {
    disp_width = DESIGN_W;
    disp_height = DESIGN_H;
    ui_scale = 1.0f;
    ui_margin_x = ui_margin_y = 0.0f;
    panel_x = panel_y = 0.0f;
    panel_w = DESIGN_W;
    panel_h = DESIGN_H;
}
