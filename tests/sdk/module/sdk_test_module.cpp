/// An address inside this library.
extern "C" int sdkTestAnchor()
{
    return 1;
}
