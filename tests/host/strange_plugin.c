/* A plugin whose record is valid for the host but contains text that is not UTF-8. */
#include "chromabridge/host_abi.h"

static REALconstant constants[] = {{"Text = \"\xFF\\\x01\"", 0, 0, {0}}};
static REALclassDefinition record = {0};

__attribute__((visibility("default"))) void REALPluginMain(REALresolver resolver) {
    record.version = 10;
    record.name = "Strange";
    record.constants = constants;
    record.constantCount = 1;
    const RegisterPluginVersionProc announce = (RegisterPluginVersionProc)resolver("RegisterPluginVersion");
    const PluginRegisterClassProc add = (PluginRegisterClassProc)resolver("PluginRegisterClass");
    announce(10);
    add(&record);
}
