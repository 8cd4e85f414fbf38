// Makes the compiler lay out the table of every class of the contract, so that check_tables can have them
// printed. Compiled for that only, and never run.
#include "kelmo/core/exception_msg.h"
#include "kelmo/param/settable.h"
#include "kelmo/param/shader_source.h"
#include "kelmo/param/texture.h"
#include "kelmo/plugin/plugin_manager.h"
#include "kelmo/scene/host_plugin_manager.h"
#include "kelmo/scene/scene.h"

using namespace KUtils;

struct EveryClass {
    ExceptionMsg* exception;
    EvaluationContext* evaluation;
    PluginBase* base;
    PluginInterface* interface;
    KelmoPluginParameter* parameter;
    TextureInterface* texture;
    TextureFloatInterface* textureFloat;
    TextureVectorInterface* textureVector;
    TextureIntInterface* textureInt;
    TextureMatrixInterface* textureMatrix;
    TextureTransformInterface* textureTransform;
    RTTexInterface* shaderText;
    KelmoCloneableParamInterface* cloneable;
    KelmoSettableParamInterface* settable;
    KelmoSettableParamInterface2* settable2;
    PluginDescriptor* descriptor;
    PluginDescriptorInterface* descriptorInterface;
    Plugin* plugin;
    EnumPluginCallback* pluginCallback;
    EnumParamsCallback* paramsCallback;
    PluginManager* manager;
    HostPluginManager* hostManager;
    KelmoScene* scene;
};

void callEveryClass(EveryClass& all, const ShadingContext& context) {
    all.exception->getMessage();
    all.evaluation->getEvaluationState();
    all.base->releaseInterface(all.interface);
    all.interface->release();
    all.parameter->getName();
    all.texture->getTexColor(context);
    all.textureFloat->getTexFloat(context);
    all.textureVector->getTexVector(context);
    all.textureInt->getTexInt(context);
    all.textureMatrix->getTexMatrix(context);
    all.textureTransform->getTexTransform(context);
    all.shaderText->reservedNotify();
    all.cloneable->clone();
    all.settable->setCount(0);
    all.settable2->getDoubleList();
    all.descriptor->getTypeName();
    all.descriptorInterface->getInterfaceID();
    all.plugin->getPluginDescriptor();
    all.plugin->setParameter(all.parameter);
    delete all.plugin;
    all.pluginCallback->process(all.plugin);
    all.paramsCallback->process(all.parameter);
    all.manager->enumPlugins(all.pluginCallback);
    all.hostManager->beginScriptAccess();
    all.scene->getManager();
}
