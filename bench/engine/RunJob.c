/* engine_run_job LIBRARY ARCHIVE [TOOLPATH]: runs one job with an engine library of any build, prints the seconds that
 * it took and by how many kilobytes the process grew, and writes its toolpath. */

#include <dlfcn.h>
#include <stdio.h>
#include <sys/resource.h>
#include <time.h>

static double now(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec + (double)time.tv_nsec * 1e-9;
}

static long peak(void)
{
    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

int main(int count, char** arguments)
{
    char problem[512] = "";
    if (count < 3)
        return 2;
    void* const library = dlopen(arguments[1], RTLD_NOW);
    if (!library)
    {
        fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    int (*const start)(const char*, char*, size_t) =
        (int (*)(const char*, char*, size_t))dlsym(library, "tessaronJobStartFile");
    int (*const wait)(int, int) = (int (*)(int, int))dlsym(library, "tessaronJobWait");
    int (*const save)(int, const char*, char*, size_t) =
        (int (*)(int, const char*, char*, size_t))dlsym(library, "tessaronJobSaveToolpath");
    if (!start || !wait || !save)
        return 1;
    const long before = peak();
    const double begin = now();
    const int job = start(arguments[2], problem, sizeof problem);
    /* 2: finished */
    if (job <= 0 || wait(job, -1) != 2)
    {
        fprintf(stderr, "%s: %s\n", arguments[2], problem);
        return 1;
    }
    printf("%.6f %ld\n", now() - begin, peak() - before);
    return count > 3 && save(job, arguments[3], problem, sizeof problem) != 0 ? 1 : 0;
}
