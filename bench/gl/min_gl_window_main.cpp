// The least a windowed GL program does: SDL up, a 1024 x 768 GL window, one cleared frame
// presented (its time on the monotonic clock on standard output), and out. The start-up
// benchmark's yardstick.
#include <SDL.h>
#include <SDL_opengl.h>

#include <cstdio>
#include <ctime>

int main(int, char**) {
    if (SDL_Init(SDL_INIT_VIDEO) != 0) return 1;
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_Window* w = SDL_CreateWindow("min", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 1024, 768,
                                     SDL_WINDOW_OPENGL | SDL_WINDOW_SHOWN);
    if (!w) return 2;
    SDL_GLContext gl = SDL_GL_CreateContext(w);
    if (!gl) return 3;
    auto clear_color = (void (*)(float, float, float, float))SDL_GL_GetProcAddress("glClearColor");
    auto clear = (void (*)(unsigned))SDL_GL_GetProcAddress("glClear");
    if (!clear_color || !clear) return 4;
    clear_color(0.2f, 0.3f, 0.4f, 1.0f);
    clear(GL_COLOR_BUFFER_BIT);
    SDL_GL_SwapWindow(w);
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    printf("first frame %.3f ms\n", (double)ts.tv_sec * 1e3 + (double)ts.tv_nsec * 1e-6);
    fflush(stdout);
    SDL_GL_DeleteContext(gl);
    SDL_DestroyWindow(w);
    SDL_Quit();
    return 0;
}
