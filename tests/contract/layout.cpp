// Sizes and offsets of the binary contract. This file only has to compile.
#include <cstddef>

#include "kelmo/core/error_record.h"
#include "kelmo/core/exception_msg.h"
#include "kelmo/param/list_view.h"
#include "kelmo/param/texture.h"
#include "kelmo/param/types.h"
#include "kelmo/plugin/param_desc.h"
#include "kelmo/plugin/plugin.h"
#include "kelmo/scene/host_plugin_manager.h"
#include "kelmo/scene/pointer_set.h"
#include "kelmo/scene/scene_list.h"

namespace KUtils {

#define SIZE(Type, bytes) static_assert(sizeof(Type) == (bytes), #Type " has another size")
#define OFFSET(Type, member, byte) \
    static_assert(offsetof(Type, member) == (byte), #Type "::" #member " stands elsewhere")
#define PLAIN(Type)                                                                                \
    static_assert(std::is_trivially_copyable<Type>::value && std::is_standard_layout<Type>::value, \
                  #Type " crosses the border as bytes")

SIZE(void*, 8);
SIZE(int, 4);
SIZE(ParamType, 4);
SIZE(InterfaceID, 8);
SIZE(ListHandle, 8);

PLAIN(Vector);
SIZE(Vector, 12);
OFFSET(Vector, x, 0);
OFFSET(Vector, y, 4);
OFFSET(Vector, z, 8);
PLAIN(Color);
SIZE(Color, 12);
OFFSET(Color, r, 0);
OFFSET(Color, g, 4);
OFFSET(Color, b, 8);
PLAIN(AColor);
SIZE(AColor, 16);
OFFSET(AColor, color, 0);
OFFSET(AColor, alpha, 12);
PLAIN(Matrix);
SIZE(Matrix, 36);
PLAIN(TraceTransform);
SIZE(TraceTransform, 64);
OFFSET(TraceTransform, matrix, 0);
OFFSET(TraceTransform, offset, 40);
static_assert(alignof(TraceTransform) == 8, "no wider alignment");
PLAIN(Transform);
SIZE(Transform, 48);
OFFSET(Transform, matrix, 0);
OFFSET(Transform, offset, 36);
PLAIN(ShadingTransform);
SIZE(ShadingTransform, 64);
PLAIN(TextureExtra);
SIZE(TextureExtra, 16);

PLAIN(ListView<std::int32_t>);
PLAIN(ListView<TraceTransform>);
SIZE(ListView<std::int32_t>, 24);
SIZE(ListView<double>, 24);
SIZE(ListView<TraceTransform>, 24);
OFFSET(ListView<float>, data, 0);
OFFSET(ListView<float>, shared, 8);
OFFSET(ListView<float>, count, 16);
OFFSET(ListView<float>, owned, 20);
SIZE(SharedArray, 24);
OFFSET(SharedArray, allocate, 0);
OFFSET(SharedArray, free, 8);
OFFSET(SharedArray, references, 16);
SIZE(SharedForeignArray, 40);
OFFSET(SharedForeignArray, allocate, 0);
OFFSET(SharedForeignArray, free, 8);
OFFSET(SharedForeignArray, references, 16);
OFFSET(SharedForeignArray, release, 24);
OFFSET(SharedForeignArray, user, 32);

PLAIN(ErrorRecord);
SIZE(ErrorRecord, 552);
OFFSET(ErrorRecord, location, 0);
OFFSET(ErrorRecord, message, 8);
OFFSET(ErrorRecord, code, 520);
OFFSET(ErrorRecord, cause, 528);
OFFSET(ErrorRecord, deleter, 536);
OFFSET(ErrorRecord, references, 544);
SIZE(ExceptionMsg, 1032);

SIZE(PluginBase, 16);
SIZE(PluginInterface, 8);
SIZE(KelmoPluginParameter, 16);
PLAIN(InterfaceRecord);
SIZE(InterfaceRecord, 24);
OFFSET(InterfaceRecord, iface, 0);
OFFSET(InterfaceRecord, owned, 8);
OFFSET(InterfaceRecord, next, 16);
SIZE(NamedPlugin, 32);
SIZE(ParamHolder, 8);
SIZE(Plugin, 56);

PLAIN(ParamDesc);
SIZE(ParamDesc, 288);
OFFSET(ParamDesc, name, 64);
OFFSET(ParamDesc, type, 72);
OFFSET(ParamDesc, listCount, 76);
OFFSET(ParamDesc, hasDefault, 112);
SIZE(ParamDesc::hasDefault, 1);
OFFSET(ParamDesc, defaultInt, 116);
OFFSET(ParamDesc, defaultFloat, 120);
OFFSET(ParamDesc, defaultDouble, 128);
OFFSET(ParamDesc, defaultVector, 136);
OFFSET(ParamDesc, defaultColor, 148);
OFFSET(ParamDesc, defaultAColor, 160);
OFFSET(ParamDesc, defaultMatrix, 176);
OFFSET(ParamDesc, defaultTransform, 212);
SIZE(ParamDesc::defaultTransform, 48);
OFFSET(ParamDesc, defaultString, 264);
PLAIN(ParamTable);
SIZE(ParamTable, 24);
OFFSET(ParamTable, count, 0);
OFFSET(ParamTable, records, 16);
SIZE(PluginDescriptor, 24);
SIZE(PluginDescriptorInterface, 16);

SIZE(HostPluginManager, 40);
SIZE(PluginManager, 8);
SIZE(KelmoScene, 32);

PLAIN(SceneNode);
SIZE(SceneNode, 16);
OFFSET(SceneNode, scene, 0);
OFFSET(SceneNode, next, 8);
PLAIN(SceneBlock);
SIZE(SceneBlock, 32);
OFFSET(SceneBlock, next, 0);
OFFSET(SceneBlock, previous, 8);
OFFSET(SceneBlock, used, 16);
OFFSET(SceneBlock, capacity, 20);
OFFSET(SceneBlock, slots, 24);
PLAIN(SceneList);
SIZE(SceneList, 80);
OFFSET(SceneList, firstBlock, 0);
OFFSET(SceneList, currentBlock, 8);
OFFSET(SceneList, slotsTaken, 28);
OFFSET(SceneList, blockSize, 32);
OFFSET(SceneList, bytesHeld, 40);
OFFSET(SceneList, head, 48);
OFFSET(SceneList, cursor, 56);
OFFSET(SceneList, freeNodes, 64);
OFFSET(SceneList, count, 72);

PLAIN(PointerSet);
SIZE(PointerSet, 32);
OFFSET(PointerSet, entries, 0);
OFFSET(PointerSet, capacity, 8);
OFFSET(PointerSet, count, 12);
OFFSET(PointerSet, neighbourhood, 16);
OFFSET(PointerSet, shrinkLoad, 20);
OFFSET(PointerSet, growLoad, 24);
OFFSET(PointerSet, minimumSize, 28);
static_assert(POINTER_SET_ENTRY_BYTES == 9 && POINTER_SET_FLAG_OFFSET == 8, "eight bytes of key, then the flag");
static_assert(POINTER_SET_EMPTY == 1 && POINTER_SET_IN_USE == 0 && POINTER_SET_FIRST_NEIGHBOURHOOD == 4,
              "flags and the first neighbourhood");

// A destructor that nothing declares virtual may not appear in a table.
static_assert(!std::has_virtual_destructor<EnumPluginCallback>::value, "one operation and no destructor");
static_assert(!std::has_virtual_destructor<EnumParamsCallback>::value, "one operation and no destructor");
static_assert(!std::has_virtual_destructor<ParamHolder>::value, "two operations and no destructor");
static_assert(!std::has_virtual_destructor<PluginManager>::value, "two operations and no destructor");
static_assert(!std::has_virtual_destructor<HostPluginManager>::value, "five operations and no destructor");
static_assert(!std::has_virtual_destructor<KelmoScene>::value, "six operations and no destructor");
static_assert(!std::has_virtual_destructor<PluginDescriptor>::value, "one operation and no destructor");
static_assert(std::has_virtual_destructor<PluginBase>::value, "the destructor comes first");
static_assert(std::has_virtual_destructor<PluginInterface>::value, "the destructor comes first");
static_assert(!std::is_copy_assignable<PluginBase>::value, "records have one owner");

// A failed allocation yields null and no exception.
static_assert(noexcept(PluginBase::operator new(1)) && noexcept(PluginBase::operator delete(nullptr, 1)),
              "operator new may not throw");

}  // namespace KUtils
