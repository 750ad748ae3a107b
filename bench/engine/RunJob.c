/* engine_run_job LIBRARY ARCHIVE [TOOLPATH]: runs one job with an engine library of any build, prints the seconds that
 * it took and by how many kilobytes the process grew, and writes its toolpath. */

#include <dlfcn.h>
#include <stdio.h>
#include <sys/resource.h>
#include <time.h>

/* The state of a job that has a toolpath. */
enum
{
    finished = 2
};

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

/* The calls of one interface for C; all return 0 for success. */
struct Calls
{
    int (*run)(void* library, const char* archive, int* job);
    int (*save)(void* library, int job, const char* path);
};

static int run(void* library, const char* archive, int* job)
{
    int (*const read)(const char*, void**) = (int (*)(const char*, void**))dlsym(library, "tessaronInputRead");
    int (*const start)(void*, int*) = (int (*)(void*, int*))dlsym(library, "tessaronJobStart");
    int (*const wait)(int, int, int*) = (int (*)(int, int, int*))dlsym(library, "tessaronJobWait");
    void* input = NULL;
    int state = 0;
    return read(archive, &input) != 0 || start(input, job) != 0 || wait(*job, -1, &state) != 0 || state != finished;
}

static int save(void* library, int job, const char* path)
{
    int (*const get)(int, void**) = (int (*)(int, void**))dlsym(library, "tessaronJobToolpath");
    int (*const write)(void*, const char*) = (int (*)(void*, const char*))dlsym(library, "tessaronToolpathWrite");
    void* toolpath = NULL;
    return get(job, &toolpath) != 0 || write(toolpath, path) != 0;
}

/* Engines from before that interface had functions of their own for jobs. */
static int runOld(void* library, const char* archive, int* job)
{
    int (*const start)(const char*, char*, size_t) =
        (int (*)(const char*, char*, size_t))dlsym(library, "tessaronJobStartFile");
    int (*const wait)(int, int) = (int (*)(int, int))dlsym(library, "tessaronJobWait");
    *job = start ? start(archive, NULL, 0) : 0;
    return *job <= 0 || wait(*job, -1) != finished;
}

static int saveOld(void* library, int job, const char* path)
{
    int (*const write)(int, const char*, char*, size_t) =
        (int (*)(int, const char*, char*, size_t))dlsym(library, "tessaronJobSaveToolpath");
    return write(job, path, NULL, 0);
}

int main(int count, char** arguments)
{
    static const struct Calls today = {run, save}, before = {runOld, saveOld};
    const struct Calls* calls;
    void* library;
    long size;
    double begin;
    int job = 0;
    if (count < 3)
        return 2;
    library = dlopen(arguments[1], RTLD_NOW);
    if (!library)
    {
        fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    calls = dlsym(library, "tessaronInputRead") ? &today : &before;
    size = peak();
    begin = now();
    if (calls->run(library, arguments[2], &job) != 0)
    {
        fprintf(stderr, "%s: the job did not finish\n", arguments[2]);
        return 1;
    }
    printf("%.6f %ld\n", now() - begin, peak() - size);
    return count > 3 && calls->save(library, job, arguments[3]) != 0 ? 1 : 0;
}
