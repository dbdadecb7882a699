/* A disk that holds no more than TZ_DISK_BYTES in the folder TZ_DISK_FOLDER, for the program that it is loaded into. */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

static long long used(const char* folder) {
  long long sum = 0;
  DIR* names = opendir(folder);
  if (names == NULL) return 0;
  for (struct dirent* name; (name = readdir(names)) != NULL;) {
    char path[4096];
    struct stat state;
    snprintf(path, sizeof path, "%s/%s", folder, name->d_name);
    if (stat(path, &state) == 0 && S_ISREG(state.st_mode)) sum += state.st_size;
  }
  closedir(names);
  return sum;
}

/* Whether a file of the folder may grow to `size`. */
static int fits(int handle, long long size) {
  const char* folder = getenv("TZ_DISK_FOLDER");
  struct stat state;
  char link[64], path[4096];
  if (folder == NULL || fstat(handle, &state) != 0 || !S_ISREG(state.st_mode) || size <= state.st_size) return 1;
  snprintf(link, sizeof link, "/proc/self/fd/%d", handle);
  const ssize_t length = readlink(link, path, sizeof path - 1);
  if (length < 0 || strncmp(path, folder, strlen(folder)) != 0) return 1;
  if (used(folder) + size - state.st_size <= atoll(getenv("TZ_DISK_BYTES"))) return 1;
  errno = ENOSPC;
  return 0;
}

ssize_t pwrite64(int handle, const void* bytes, size_t count, off64_t place) {
  static ssize_t (*real)(int, const void*, size_t, off64_t);
  if (real == NULL) *(void**)&real = dlsym(RTLD_NEXT, "pwrite64");
  return fits(handle, place + (long long)count) ? real(handle, bytes, count, place) : -1;
}

ssize_t pwrite(int handle, const void* bytes, size_t count, off_t place) {
  return pwrite64(handle, bytes, count, place);
}

int ftruncate64(int handle, off64_t size) {
  static int (*real)(int, off64_t);
  if (real == NULL) *(void**)&real = dlsym(RTLD_NEXT, "ftruncate64");
  return fits(handle, size) ? real(handle, size) : -1;
}
