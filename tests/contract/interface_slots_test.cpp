// PluginInterface and the optional interfaces: identifiers, names, and every operation through the raw table.
#include "contract/probe.h"
#include "kelmo/param/settable.h"
#include "kelmo/param/texture.h"
#include "raw_slots.h"
#include "support/check.h"

using namespace KUtils;

namespace {

// The slot of an operation by its number in the contract, where 1 is the destructor.
constexpr int slot(int number) { return number - 2 + DESTRUCTOR_SLOTS; }

int destroyed = 0;
char anything[32];

const ShadingContext& someContext() { return *reinterpret_cast<const ShadingContext*>(anything); }
PluginBase* somePlugin() { return reinterpret_cast<PluginBase*>(anything + 8); }
KelmoPluginParameter* someParameter() { return reinterpret_cast<KelmoPluginParameter*>(anything + 16); }

// Notes who asks for the owner, and answers it.
template <class Interface>
class Owned : public Interface {
  public:
    ~Owned() override { ++destroyed; }
    PluginBase* getPlugin() override {
        note("getPlugin");
        return somePlugin();
    }
};

class ProbeInterface : public Owned<PluginInterface> {
  public:
    std::uint32_t getInterfaceID() override { return 0xFEDCBA98; }
    const char* getInterfaceName() override { return "NAME"; }
    void release() override { note("release"); }
};

class PlainInterface : public Owned<PluginInterface> {
  public:
    std::uint32_t getInterfaceID() override { return 1; }
};

class ProbeTexture : public Owned<TextureInterface> {
  public:
    AColor getTexColor(const ShadingContext& context) override {
        note("getTexColor", &context);
        return AColor{{1, 2, 3}, 4};
    }
    void getTexColorBounds(AColor& minimum, AColor& maximum) override { note("getTexColorBounds", &minimum, &maximum); }
};

class ProbeTextureFloat : public Owned<TextureFloatInterface> {
  public:
    float getTexFloat(const ShadingContext& context) override {
        note("getTexFloat", &context);
        return 2.5f;
    }
    void getTexFloatBounds(float& minimum, float& maximum) override { note("getTexFloatBounds", &minimum, &maximum); }
};

class ProbeTextureVector : public Owned<TextureVectorInterface> {
  public:
    Vector getTexVector(const ShadingContext& context) override {
        note("getTexVector", &context);
        return Vector{1, 2, 3};
    }
    void getTexVectorBounds(Vector& minimum, Vector& maximum) override {
        note("getTexVectorBounds", &minimum, &maximum);
    }
    TextureExtra getTexExtra() override {
        note("getTexExtra");
        return TextureExtra{{0x1122334455667788, 0x99}};
    }
};

class ProbeTextureInt : public Owned<TextureIntInterface> {
  public:
    int getTexInt(const ShadingContext& context) override {
        note("getTexInt", &context);
        return -5;
    }
};

class ProbeTextureMatrix : public Owned<TextureMatrixInterface> {
  public:
    Matrix getTexMatrix(const ShadingContext& context) override {
        note("getTexMatrix", &context);
        return Matrix{{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
    }
};

class ProbeTextureTransform : public Owned<TextureTransformInterface> {
  public:
    ShadingTransform getTexTransform(const ShadingContext& context) override {
        note("getTexTransform", &context);
        return ShadingTransform{{{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}}};
    }
};

class ProbeShaderText : public Owned<RTTexInterface> {
  public:
    int reservedQuery() override {
        note("reservedQuery");
        return 6;
    }
    void reservedNotify() override { note("reservedNotify"); }
    int writeShaderSource(void* reserved1, void* reserved2, const char* section, ShaderSource* source,
                          const EvaluationContext* context) override {
        note("writeShaderSource", reserved1, reserved2, static_cast<const void*>(section), source, context);
        return 1;
    }
};

class PlainShaderText : public Owned<RTTexInterface> {
  public:
    int writeShaderSource(void*, void*, const char*, ShaderSource*, const EvaluationContext*) override { return 0; }
};

class ProbeCloneable : public Owned<KelmoCloneableParamInterface> {
  public:
    KelmoPluginParameter* clone() override {
        note("clone");
        return someParameter();
    }
};

template <class Interface>
class ProbeSettable : public Owned<Interface> {
  public:
    void setInt(int value, int index, double time) override { note("setInt", value, index, time); }
    void setFloat(float value, int index, double time) override { note("setFloat", double{value}, index, time); }
    void setDouble(double value, int index, double time) override { note("setDouble", value, index, time); }
    void setBool(bool value, int index, double time) override { note("setBool", value, index, time); }
    void setColor(const Color& value, int index, double time) override { note("setColor", &value, index, time); }
    void setAColor(const AColor& value, int index, double time) override { note("setAColor", &value, index, time); }
    void setString(const char* value, int index, double time) override {
        note("setString", static_cast<const void*>(value), index, time);
    }
    void setPluginOutput(PluginBase* plugin, const char* outputName, int index, double time) override {
        note("setPluginOutput", plugin, static_cast<const void*>(outputName), index, time);
    }
    void setVector(const Vector& value, int index, double time) override { note("setVector", &value, index, time); }
    void setMatrix(const Matrix& value, int index, double time) override { note("setMatrix", &value, index, time); }
    void setTransform(const Transform& value, int index, double time) override {
        note("setTransform", &value, index, time);
    }
    void reservedSet1() override { note("reservedSet1"); }
    void reservedSet2() override { note("reservedSet2"); }
    void reservedSet3() override { note("reservedSet3"); }
    void reservedSet4() override { note("reservedSet4"); }
    void setCount(int count) override { note("setCount", count); }
    void reserve(int capacity) override { note("reserve", capacity); }
};

class ProbeSettable2 : public ProbeSettable<KelmoSettableParamInterface2> {
  public:
    void reservedSet5() override { note("reservedSet5"); }
    void reservedSet6() override { note("reservedSet6"); }
    void reservedSet7() override { note("reservedSet7"); }
    void setDoubleList(const ListView<double>& values) override { note("setDoubleList", &values); }
    ListView<double> getDoubleList() override {
        note("getDoubleList");
        return ListView<double>{reinterpret_cast<double*>(anything), anything + 8, 5, 1};
    }
    void setTransformList(const ListView<Transform>& values) override { note("setTransformList", &values); }
    ListView<TraceTransform> getTransformList() override {
        note("getTransformList");
        return ListView<TraceTransform>{reinterpret_cast<TraceTransform*>(anything), anything + 8, 6, 1};
    }
};

struct Identity {
    const char* name;
    void* object;
    std::uint32_t id;
};

}  // namespace

TEST_CASE(interfaceIdentifiersAndNames) {
    ProbeTexture texture;
    ProbeTextureFloat textureFloat;
    ProbeTextureVector textureVector;
    ProbeTextureInt textureInt;
    ProbeTextureMatrix textureMatrix;
    ProbeTextureTransform textureTransform;
    ProbeShaderText shaderText;
    ProbeCloneable cloneable;
    ProbeSettable<KelmoSettableParamInterface> settable;
    ProbeSettable2 settable2;
    const Identity rows[] = {
        {"EXT_TEXTURE", &texture, 2004353026u},
        {"EXT_TEXTURE_FLOAT", &textureFloat, 2005072101u},
        {"EXT_TEXTURE_VECTOR", &textureVector, 2005072102u},
        {"EXT_TEXTURE_MATRIX", &textureMatrix, 2005072103u},
        {"EXT_TEXTURE_TRANSFORM", &textureTransform, 2005072105u},
        {"EXT_TEXTURE_INT", &textureInt, 2005072106u},
        {"EXT_RTTEX", &shaderText, 2010120102u},
        {"EXT_CLONEABLE_PARAM", &cloneable, 2011041500u},
        {"EXT_SETTABLE_PARAM2", &settable2, 2013102979u},
        {"EXT_SETTABLE_PARAM", &settable, 3132808915u},
    };
    for (const Identity& row : rows) {
        CHECK_ROW(row.name);
        CHECK_EQ(callSlot<std::uint32_t>(row.object, slot(2)), row.id);
        CHECK_EQ(callSlot<PluginBase*>(row.object, slot(3)), somePlugin());
        CHECK_CALLED("getPlugin");
        CHECK_TEXT(callSlot<const char*>(row.object, slot(4)), row.name);
    }
    CHECK_EQ(UNIQUE_PLUGIN_INTERFACE_ID, InterfaceID{137724436992});
    CHECK_EQ(PLUGIN_DESC_INTERFACE_ID, 0x7776FFFFu);
}

TEST_CASE(interfaceBaseOperations) {
    destroyed = 0;
    alignas(ProbeInterface) unsigned char storage[sizeof(ProbeInterface)];
    auto* probe = ::new (storage) ProbeInterface;
    CHECK_EQ(callSlot<std::uint32_t>(probe, slot(2)), 0xFEDCBA98u);
    CHECK_EQ(callSlot<PluginBase*>(probe, slot(3)), somePlugin());
    CHECK_CALLED("getPlugin");
    CHECK_TEXT(callSlot<const char*>(probe, slot(4)), "NAME");
    callSlot<void>(probe, slot(5));
    CHECK_CALLED("release");
    destroyThroughTable(probe);
    CHECK_EQ(destroyed, 1);

    PlainInterface plain;
    CHECK_EQ(callSlot<const char*>(&plain, slot(4)), static_cast<const char*>(nullptr));
}

// An interface that is not told otherwise has its owner release it.
TEST_CASE(releaseGoesToTheOwner) {
    struct Owner : PluginBase {
        void releaseInterface(PluginInterface* iface) override { note("releaseInterface", iface); }
    } owner;
    struct Part : PluginInterface {
        PluginBase* owner = nullptr;
        std::uint32_t getInterfaceID() override { return 1; }
        PluginBase* getPlugin() override { return owner; }
    } part;
    part.owner = &owner;
    callSlot<void>(&part, slot(5));
    CHECK_CALLED("releaseInterface", static_cast<const void*>(&part));
}

TEST_CASE(textureOperations) {
    const void* context = &someContext();
    AColor minimum{}, maximum{};
    ProbeTexture texture;
    const auto color = callSlot<AColor>(&texture, slot(6), context);
    CHECK_CALLED("getTexColor", context);
    CHECK(color.color.r == 1 && color.color.g == 2 && color.color.b == 3 && color.alpha == 4);
    callSlot<void>(&texture, slot(7), &minimum, &maximum);
    CHECK_CALLED("getTexColorBounds", &minimum, &maximum);
    const auto noExtra = callSlot<TextureExtra>(&texture, slot(8));
    CHECK(noExtra.words[0] == 0 && noExtra.words[1] == 0);

    float low = 0, high = 0;
    ProbeTextureFloat textureFloat;
    CHECK_EQ(callSlot<float>(&textureFloat, slot(6), context), 2.5f);
    CHECK_CALLED("getTexFloat", context);
    callSlot<void>(&textureFloat, slot(7), &low, &high);
    CHECK_CALLED("getTexFloatBounds", &low, &high);
    CHECK_EQ(callSlot<TextureExtra>(&textureFloat, slot(8)).words[1], std::uint64_t{0});

    Vector from{}, to{};
    ProbeTextureVector textureVector;
    const auto vector = callSlot<Vector>(&textureVector, slot(6), context);
    CHECK_CALLED("getTexVector", context);
    CHECK(vector.x == 1 && vector.y == 2 && vector.z == 3);
    callSlot<void>(&textureVector, slot(7), &from, &to);
    CHECK_CALLED("getTexVectorBounds", &from, &to);
    const auto extra = callSlot<TextureExtra>(&textureVector, slot(8));
    CHECK_CALLED("getTexExtra");
    CHECK(extra.words[0] == 0x1122334455667788 && extra.words[1] == 0x99);

    ProbeTextureInt textureInt;
    CHECK_EQ(callSlot<int>(&textureInt, slot(6), context), -5);
    CHECK_CALLED("getTexInt", context);

    ProbeTextureMatrix textureMatrix;
    CHECK_EQ(callSlot<Matrix>(&textureMatrix, slot(6), context).columns[2].x, 7.0f);
    CHECK_CALLED("getTexMatrix", context);

    ProbeTextureTransform textureTransform;
    const auto transform = callSlot<ShadingTransform>(&textureTransform, slot(6), context);
    CHECK_CALLED("getTexTransform", context);
    CHECK(transform.lanes[0][0] == 1 && transform.lanes[3][3] == 16);
}

TEST_CASE(shaderTextOperations) {
    ProbeShaderText probe;
    CHECK_EQ(callSlot<int>(&probe, slot(6)), 6);
    CHECK_CALLED("reservedQuery");
    callSlot<void>(&probe, slot(7));
    CHECK_CALLED("reservedNotify");
    const char* section = "section";
    const int written = callSlot<int, const void*, const void*, const char*, const void*, const void*>(
        &probe, slot(8), anything, anything + 1, section, anything + 2, anything + 3);
    CHECK_EQ(written, 1);
    CHECK_CALLED("writeShaderSource", static_cast<const void*>(anything), static_cast<const void*>(anything + 1),
                 static_cast<const void*>(section), static_cast<const void*>(anything + 2),
                 static_cast<const void*>(anything + 3));
    PlainShaderText plain;
    CHECK_EQ(callSlot<int>(&plain, slot(6)), 0);
    callSlot<void>(&plain, slot(7));
}

TEST_CASE(cloneOperation) {
    ProbeCloneable probe;
    CHECK_EQ(callSlot<KelmoPluginParameter*>(&probe, slot(6)), someParameter());
    CHECK_CALLED("clone");
}

static void checkSettable(void* object) {
    const Color color{};
    const AColor acolor{};
    const Vector vector{};
    const Matrix matrix{};
    const Transform transform{};
    const char* text = "text";
    const void* plugin = somePlugin();
    callSlot<void>(object, slot(6), -3, 1, 0.5);
    CHECK_CALLED("setInt", -3, 1, 0.5);
    callSlot<void>(object, slot(7), 1.25f, 2, 0.5);
    CHECK_CALLED("setFloat", 1.25, 2, 0.5);
    callSlot<void>(object, slot(8), 2.25, 3, 0.5);
    CHECK_CALLED("setDouble", 2.25, 3, 0.5);
    callSlot<void>(object, slot(9), true, 4, 0.5);
    CHECK_CALLED("setBool", true, 4, 0.5);
    callSlot<void>(object, slot(10), &color, 5, 0.5);
    CHECK_CALLED("setColor", &color, 5, 0.5);
    callSlot<void>(object, slot(11), &acolor, 6, 0.5);
    CHECK_CALLED("setAColor", &acolor, 6, 0.5);
    callSlot<void>(object, slot(12), text, 7, 0.5);
    CHECK_CALLED("setString", static_cast<const void*>(text), 7, 0.5);
    callSlot<void>(object, slot(13), plugin, text, 8, 0.5);
    CHECK_CALLED("setPluginOutput", plugin, static_cast<const void*>(text), 8, 0.5);
    callSlot<void>(object, slot(14), plugin, 9, 0.75);
    CHECK_CALLED("setPluginOutput", plugin, static_cast<const void*>(nullptr), 9, 0.75);
    callSlot<void>(object, slot(15), &vector, 10, 0.5);
    CHECK_CALLED("setVector", &vector, 10, 0.5);
    callSlot<void>(object, slot(16), &matrix, 11, 0.5);
    CHECK_CALLED("setMatrix", &matrix, 11, 0.5);
    callSlot<void>(object, slot(17), &transform, 12, 0.5);
    CHECK_CALLED("setTransform", &transform, 12, 0.5);
    const char* const reserved[] = {"reservedSet1", "reservedSet2", "reservedSet3", "reservedSet4"};
    for (int i = 0; i < 4; ++i) {
        callSlot<void>(object, slot(18 + i));
        CHECK_CALLED(reserved[i]);
    }
    callSlot<void>(object, slot(22), 13);
    CHECK_CALLED("setCount", 13);
    callSlot<void>(object, slot(23), 14);
    CHECK_CALLED("reserve", 14);
}

TEST_CASE(settableOperations) {
    ProbeSettable<KelmoSettableParamInterface> settable;
    checkSettable(&settable);
    ProbeSettable2 settable2;
    checkSettable(&settable2);
}

TEST_CASE(settable2Operations) {
    ProbeSettable2 settable;
    void* object = &settable;
    const char* const reserved[] = {"reservedSet5", "reservedSet6", "reservedSet7"};
    for (int i = 0; i < 3; ++i) {
        callSlot<void>(object, slot(24 + i));
        CHECK_CALLED(reserved[i]);
    }
    const ListView<double> doubles{};
    callSlot<void>(object, slot(27), &doubles);
    CHECK_CALLED("setDoubleList", &doubles);
    const auto view = callSlot<ListView<double>>(object, slot(28));
    CHECK_CALLED("getDoubleList");
    CHECK(view.shared == anything + 8 && view.count == 5 && view.owned == 1);
    const ListView<Transform> transforms{};
    callSlot<void>(object, slot(29), &transforms);
    CHECK_CALLED("setTransformList", &transforms);
    const auto transformView = callSlot<ListView<TraceTransform>>(object, slot(30));
    CHECK_CALLED("getTransformList");
    CHECK(transformView.shared == anything + 8 && transformView.count == 6 && transformView.owned == 1);
}

// Every setter that is not overridden does nothing, and the getters answer an empty view.
TEST_CASE(settableDefaults) {
    Owned<KelmoSettableParamInterface2> plain;
    void* object = &plain;
    const Transform value{};
    callSlot<void>(object, slot(6), 1, 0, 0.0);
    callSlot<void>(object, slot(7), 1.0f, 0, 0.0);
    callSlot<void>(object, slot(8), 1.0, 0, 0.0);
    callSlot<void>(object, slot(9), true, 0, 0.0);
    for (int number : {10, 11, 12, 15, 16, 17}) callSlot<void>(object, slot(number), &value, 0, 0.0);
    callSlot<void>(object, slot(13), somePlugin(), "out", 0, 0.0);
    callSlot<void>(object, slot(14), somePlugin(), 0, 0.0);
    for (int number : {18, 19, 20, 21, 24, 25, 26}) callSlot<void>(object, slot(number));
    for (int number : {22, 23}) callSlot<void>(object, slot(number), 1);
    const ListView<double> values{};
    for (int number : {27, 29}) callSlot<void>(object, slot(number), &values);
    CHECK_TEXT(lastCall().c_str(), "");
    const auto doubles = callSlot<ListView<double>>(object, slot(28));
    CHECK(doubles.data == nullptr && doubles.shared == nullptr && doubles.count == 0 && doubles.owned == 0);
    const auto transforms = callSlot<ListView<TraceTransform>>(object, slot(30));
    CHECK(transforms.data == nullptr && transforms.shared == nullptr && transforms.count == 0 && transforms.owned == 0);
}
