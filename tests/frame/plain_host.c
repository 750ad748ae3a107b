/* A host in plain C: it loads the module at run time, calls its plain names, and finds its process as it left it. Run
 * it with a display and without one. What is printed besides the closing line is the module's, which must print
 * nothing. */
#include <dlfcn.h>
#include <locale.h>
#include <pthread.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

typedef int (*ReadInput)(const char*, void**);
typedef int (*StartJob)(void*, int*);
typedef int (*WaitForJob)(int, int, int*);
typedef int (*ShowJob)(int, const char*);
typedef int (*ShowMultiJob)(int);
typedef int (*CancelJob)(int);
typedef void (*Quit)(void);
typedef const char* (*ProgramName)(void);

static int failures = 0;

static void check(int condition, const char* what)
{
    if (!condition)
    {
        fprintf(stderr, "FAILED: %s\n", what);
        ++failures;
    }
}

static void* load(const char* path)
{
    void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (!library)
    {
        fprintf(stderr, "FAILED: %s\n", dlerror());
        exit(1);
    }
    return library;
}

static void* find(void* library, const char* name)
{
    void* const symbol = dlsym(library, name);
    if (!symbol)
    {
        fprintf(stderr, "FAILED: no %s\n", name);
        exit(1);
    }
    return symbol;
}

static size_t environmentSize(void)
{
    extern char** environ;
    size_t size = 0;
    while (environ[size])
        ++size;
    return size;
}

static void onSignal(int number)
{
    (void)number;
}

static void* quitLater(void* quit)
{
    usleep(300 * 1000);
    (*(Quit*)quit)();
    return NULL;
}

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    setlocale(LC_ALL, "C.UTF-8");
    signal(SIGPIPE, onSignal);
    signal(SIGINT, onSignal);
    char folder[4096];
    check(getcwd(folder, sizeof folder) != NULL, "getcwd");
    char locale[256];
    snprintf(locale, sizeof locale, "%s", setlocale(LC_ALL, NULL));

    const size_t environmentBefore = environmentSize();

    fflush(stdout);
    FILE* const printed = tmpfile();
    const int realOut = dup(1);
    dup2(fileno(printed), 1);
    const int realErr = dup(2);
    dup2(fileno(printed), 2);

    void* const module = load(argv[1]);
    void* const engine = load(argv[2]);
    const ShowJob show = (ShowJob)find(module, "displayProgressDialogForJobId");
    const ShowJob showTurning = (ShowJob)find(module, "displayOrrimantProgressDialogForJobId");
    const ShowMultiJob showMulti = (ShowMultiJob)find(module, "displayMultiProgressDialogForJobId");
    const ShowMultiJob showMultiTurning = (ShowMultiJob)find(module, "displayOrrimantMultiProgressDialogForJobId");
    const ReadInput readInput = (ReadInput)find(engine, "tessaronInputRead");
    const StartJob start = (StartJob)find(engine, "tessaronJobStart");
    const WaitForJob wait = (WaitForJob)find(engine, "tessaronJobWait");
    const CancelJob cancel = (CancelJob)find(engine, "tessaronJobCancel");

    /* Also the id that says that a record follows no job yet, which nobody could change here. */
    const int unknown[] = {show(123456789, "Unknown"), showTurning(123456789, NULL),
                           showMulti(123456789),       showMultiTurning(123456789),
                           show(-1, "None"),           showMulti(-1)};
    void* part = NULL;
    int job = 0, second = 0, endState = 0;
    const int readStatus = readInput(argv[3], &part);
    const int startStatus = readStatus == 0 ? start(part, &job) : readStatus;
    const int finished = startStatus == 0 ? show(job, "Job") : startStatus;
    wait(job, 0, &endState);

    Quit quit = (Quit)find(module, "tessaronResourcesQuit");
    pthread_t thread;
    if (startStatus == 0)
        start(part, &second);
    pthread_create(&thread, NULL, quitLater, &quit);
    const int quitResult = showMulti(second);
    pthread_join(thread, NULL);
    cancel(second);

    fflush(stdout);
    fflush(stderr);
    dup2(realOut, 1);
    dup2(realErr, 2);

    ProgramName programName = (ProgramName)find(load("libglib-2.0.so.0"), "g_get_prgname");
    const char* const own = strrchr(argv[0], '/');
    check(!programName() || strcmp(programName(), own ? own + 1 : argv[0]) == 0, "the program's name is its own");
    check(environmentSize() == environmentBefore, "the environment is as it was");
    for (size_t i = 0; i < sizeof unknown / sizeof *unknown; ++i)
        check(unknown[i] == 1, "a job that the engine does not know has ended: 1");
    check(finished == 1, "a job that ends by itself: 1");
    check(endState == 2, "the job has finished");
    check(quitResult == 1, "a quit message, or a job that was faster: 1");
    check(strcmp(locale, setlocale(LC_ALL, NULL)) == 0, "the locale is as it was");
    struct sigaction action;
    sigaction(SIGPIPE, NULL, &action);
    check(action.sa_handler == onSignal, "SIGPIPE is handled as before");
    sigaction(SIGINT, NULL, &action);
    check(action.sa_handler == onSignal, "SIGINT is handled as before");
    char now[4096];
    check(getcwd(now, sizeof now) != NULL && strcmp(folder, now) == 0, "the working directory is as it was");
    struct stat size;
    fstat(fileno(printed), &size);
    check(size.st_size == 0, "nothing was printed");
    char line[512];
    rewind(printed);
    while (fgets(line, sizeof line, printed))
        fprintf(stderr, "printed: %s", line);
    printf("%s\n", failures ? "plain host: failed" : "plain host: all as it should be");
    return failures != 0;
}
