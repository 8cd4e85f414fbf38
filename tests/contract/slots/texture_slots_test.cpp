// The texture interfaces and the shader text: identifiers, names, and every operation through the raw table.
#include "interface_slots.h"

using namespace KUtils;

namespace {

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

}  // namespace

TEST_CASE(textureIdentities) {
    ProbeTexture texture;
    ProbeTextureFloat textureFloat;
    ProbeTextureVector textureVector;
    ProbeTextureInt textureInt;
    ProbeTextureMatrix textureMatrix;
    ProbeTextureTransform textureTransform;
    ProbeShaderText shaderText;
    checkIdentity(&texture, 2004353026u, "EXT_TEXTURE");
    checkIdentity(&textureFloat, 2005072101u, "EXT_TEXTURE_FLOAT");
    checkIdentity(&textureVector, 2005072102u, "EXT_TEXTURE_VECTOR");
    checkIdentity(&textureMatrix, 2005072103u, "EXT_TEXTURE_MATRIX");
    checkIdentity(&textureTransform, 2005072105u, "EXT_TEXTURE_TRANSFORM");
    checkIdentity(&textureInt, 2005072106u, "EXT_TEXTURE_INT");
    checkIdentity(&shaderText, 2010120102u, "EXT_RTTEX");
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
