// Preloaded, this is libpulse with a connection that does not come back, as while a sound server is started that hangs.

#include <unistd.h>

extern "C" int pa_context_connect(void *, const char *, int, const void *);

int pa_context_connect(void *, const char *, int, const void *)
{
    sleep(60);
    return -1;
}
