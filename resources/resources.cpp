// The icons and the toolkit's catalogue are compiled into this library by
// qt_add_resources; this file only gives the library a translation unit of its own.
namespace zenkora {
int resourcesVersion() { return 1; }
}
