// What --help adds to the list of options: examples, exit codes, and what the options cannot say.
#pragma once

inline constexpr const char* programFooter = R"(Examples:
  kelmo-offline run shot.kscene relight.py -o relit.kscene
  kelmo-offline run shot.glb relight.py
  kelmo-offline cat shot.fbx > shot.kscene
  kelmo-offline info MtlDiffuse

Exit codes:
  0  done
  1  the script raised, or left with a value other than None and 0
  2  the command line is wrong
  3  a result could not be written
  4  a scene, script or type folder could not be read
  5  the translation of an export died or went over its limits
  6  the program's own files are missing or damaged, or there was not enough memory)";

inline constexpr const char* runFooter =
    R"(SCENE is an offline scene (.kscene) or an export of a DCC (.gltf, .glb, .fbx, .obj).
The script runs in Python 2.7 as __main__ and imports kelmo.pluginmodifier. Afterwards the
changes are listed. OUT is written only when the script succeeds, and appears whole or not at all.

Examples:
  kelmo-offline run shot.kscene relight.py
      runs the script and shows what it changes
  kelmo-offline run shot.kscene relight.py -o relit.kscene
      saves the changed scene as well
  kelmo-offline run shot.glb override.py -- --only "wall*"
      translates the export first; what stands after -- is the script's sys.argv[1:]
  kelmo-offline run shot.kscene relight.py --json > changes.json
      the changes as one JSON object; what the script prints goes to standard error)";

inline constexpr const char* catFooter =
    R"(SCENE is an offline scene (.kscene) or an export of a DCC (.gltf, .glb, .fbx, .obj).

Examples:
  kelmo-offline cat shot.glb > shot.kscene
      translates an export once, for many runs
  kelmo-offline cat shot.kscene | grep MtlDiffuse
  kelmo-offline cat shot.fbx --defer materials,textures
      marks what nothing visible refers to as deferred)";

inline constexpr const char* infoFooter = R"(Examples:
  kelmo-offline info
      all plugin types, by kind
  kelmo-offline info MtlDiffuse
      one type: its parameters with type, default and meaning
  kelmo-offline info MtlDiffuse --json)";
