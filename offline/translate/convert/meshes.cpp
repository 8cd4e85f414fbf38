// Meshes: positions, normals, vertex colours and every set of texture coordinates, each with indices of its
// own, so that what the file shares stays shared.
#include <memory>

#include "convert/indexed_values.h"
#include "convert/scene_converter.h"
#include "json_text.h"

namespace Translation {
namespace {

// Corners of the triangles of a mesh, as vertex numbers.
std::vector<unsigned> triangleCorners(const aiMesh& mesh) {
    std::vector<unsigned> corners;
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
        const aiFace& face = mesh.mFaces[i];
        if (face.mNumIndices == 3) corners.insert(corners.end(), face.mIndices, face.mIndices + 3);
    }
    return corners;
}

bool hasTriangle(const aiMesh& mesh) {
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
        if (mesh.mFaces[i].mNumIndices == 3) return true;
    }
    return false;
}

unsigned otherFaces(const aiMesh& mesh) {
    unsigned count = 0;
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) count += mesh.mFaces[i].mNumIndices != 3 ? 1u : 0u;
    return count;
}

IndexedValues<3> indexed(const aiVector3D* values, const std::vector<unsigned>& corners) {
    IndexedValues<3> result;
    for (const unsigned i : corners) result.addCorner({values[i].x, values[i].y, values[i].z});
    return result;
}

IndexedValues<4> indexed(const aiColor4D* values, const std::vector<unsigned>& corners) {
    IndexedValues<4> result;
    for (const unsigned i : corners) result.addCorner({values[i].r, values[i].g, values[i].b, values[i].a});
    return result;
}

template <std::size_t N>
void writeValues(SceneOutput& out, const IndexedValues<N>& list) {
    char before = '[';
    for (const auto& value : list.values()) {
        out.text() += before;
        appendNumbers(out.text(), value.data(), N);
        out.drain();
        before = ',';
    }
    out.text() += list.values().empty() ? "[]" : "]";
}

template <std::size_t N>
void writeCorners(SceneOutput& out, const IndexedValues<N>& list) {
    char before = '[';
    for (const std::uint32_t corner : list.corners()) {
        out.text() += before;
        appendNumber(out.text(), static_cast<int>(corner));
        out.drain();
        before = ',';
    }
    out.text() += list.corners().empty() ? "[]" : "]";
}

void writeMapChannels(SceneOutput& out, const aiMesh& mesh, const std::vector<unsigned>& corners) {
    bool first = true;
    for (unsigned set = 0; set < AI_MAX_NUMBER_OF_TEXTURECOORDS; ++set) {
        if (mesh.mTextureCoords[set] == nullptr) continue;
        if (first) out.param("map_channels");
        const IndexedValues<3> list = indexed(mesh.mTextureCoords[set], corners);
        out.text() += first ? "[{\"channel\":" : ",{\"channel\":";
        appendNumber(out.text(), static_cast<int>(set));
        out.text() += ",\"vertices\":";
        writeValues(out, list);
        out.text() += ",\"faces\":";
        writeCorners(out, list);
        out.text() += '}';
        first = false;
    }
    if (!first) out.text() += ']';
}

template <class List>
void writeIndexed(SceneOutput& out, const char* valuesName, const char* cornersName, const List& list) {
    out.param(valuesName);
    writeValues(out, list);
    out.param(cornersName);
    writeCorners(out, list);
}

void writeMesh(SceneOutput& out, const aiMesh& mesh) {
    const std::vector<unsigned> corners = triangleCorners(mesh);
    writeIndexed(out, "vertices", "faces", indexed(mesh.mVertices, corners));
    if (mesh.mNormals != nullptr) writeIndexed(out, "normals", "face_normals", indexed(mesh.mNormals, corners));
    writeMapChannels(out, mesh, corners);
    if (mesh.mColors[0] != nullptr) writeIndexed(out, "colors", "face_colors", indexed(mesh.mColors[0], corners));
}

// Every index must name a vertex: the lists are read by it.
void checkMesh(const aiMesh& mesh, const std::string& fileName) {
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
        const aiFace& face = mesh.mFaces[i];
        for (unsigned corner = 0; corner < face.mNumIndices; ++corner) {
            if (face.mIndices[corner] < mesh.mNumVertices && mesh.mVertices != nullptr) continue;
            throw Failure{Problem::damaged, "\"" + fileName + "\" is damaged: a face of the mesh \"" +
                                                textOf(mesh.mName) + "\" names vertex " +
                                                std::to_string(face.mIndices[corner]) + " of " +
                                                std::to_string(mesh.mNumVertices) + "."};
        }
    }
}

}  // namespace

void SceneConverter::nameMeshes() {
    for (unsigned i = 0; i < scene_.mNumMeshes; ++i) {
        const aiMesh& mesh = *scene_.mMeshes[i];
        checkMesh(mesh, fileName_);
        std::string name;
        const std::string dccName = nameOr(mesh.mName, "mesh");
        if (hasTriangle(mesh)) name = names_.take(dccName + "@mesh", "mesh");
        meshNames_.push_back(name);

        const unsigned others = otherFaces(mesh);
        if (others != 0) {
            leftOut(std::to_string(others) + " points and lines of the mesh \"" + dccName + "\"",
                    "a mesh is made of triangles");
        }
        if (mesh.mColors[0] != nullptr && mesh.mColors[1] != nullptr) {
            leftOut("further vertex colours of the mesh \"" + dccName + "\"", "a mesh has one set of them");
        }
        if (mesh.mNumBones != 0) leftOut("the bones of the mesh \"" + dccName + "\"", "an offline scene stands still");
        if (mesh.mNumAnimMeshes != 0) {
            leftOut("the shapes of the mesh \"" + dccName + "\"", "an offline scene stands still");
        }
    }
}

void SceneConverter::addMeshes() {
    for (unsigned i = 0; i < scene_.mNumMeshes; ++i) {
        if (meshNames_[i].empty()) continue;
        const aiMesh* mesh = scene_.mMeshes[i];
        Record& record =
            meshes_.emplace_back(RecordKind::geometry, "GeomStaticMesh", meshNames_[i], textOf(mesh->mName));
        record.later([mesh](SceneOutput& out) { writeMesh(out, *mesh); });
    }
}

}  // namespace Translation
