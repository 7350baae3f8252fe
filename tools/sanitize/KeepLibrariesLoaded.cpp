// Under the sanitizers, libraries opened at run time stay loaded until exit,
// in every program of the sanitizer build: the tests and the programs they start.
// Mesa's GL driver is unloaded with the last window, before the leak check at
// exit; its leftovers would then show with no library name, so lsan.supp
// could not tell them from ours. Kept loaded, they are still reachable.

#if defined(__SANITIZE_ADDRESS__)
#define OT_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define OT_ASAN 1
#endif
#endif

#if defined(OT_ASAN)
extern "C" int dlclose(void* /*handle*/) { return 0; }
#endif
