// A service library that can't be loaded: nothing defines what it calls.

int definedNowhere();

extern "C" __attribute__((visibility("default"))) int callsWhatIsNowhere()
{
    return definedNowhere();
}
