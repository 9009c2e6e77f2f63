// A plug-in whose implementation is its name; built several times, with and without its entry points.

extern "C" {

#ifdef PLUGIN_POINT
__attribute__((visibility("default"))) char const* extensionPointName() { return PLUGIN_POINT; }
#endif

#ifdef PLUGIN_ANSWER
__attribute__((visibility("default"))) void* createPlugin() {
    static char answer[] = PLUGIN_ANSWER;
    return answer;
}
#endif

} // extern "C"
