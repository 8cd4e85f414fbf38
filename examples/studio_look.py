"""A worked post-translate script: gives a scene the studio's look.

    kelmo-offline run examples/scenes/studio.glb examples/studio_look.py -o look.kscene
    kelmo-offline run shot.kscene examples/studio_look.py -- --statues "hero_*" --dim 0.5

- re-light: dims every light of the scene and adds a soft sky;
- override materials by wildcard: the statues share a marble made from the material that the first one had;
- swap textures: image textures on base colours give way to a procedural checker;
- per-object settings: props get their numbers, and the sky leaves them alone;
- settings: a working resolution.

Every value crosses as a pair (type code, value); the codes are named below.
"""
import argparse

import kelmo.pluginmodifier as pm

INT, FLOAT, BOOL, COLOR, ACOLOR, STRING, PLUGIN, LIST = 0, 1, 3, 5, 6, 9, 10, 12


def relight(dim):
    """Dims the lights that the scene came with, then adds a sky to fill the shadows. Gives the sky's name."""
    for light in pm._findByType("Light*"):
        code, intensity = pm._getParam(light, "intensity")
        pm._setParam(light, "intensity", (code, intensity * dim))
    sky = pm._create("LightEnvironment", "look@sky")
    pm._setParam(sky, "color", (ACOLOR, ((0.55, 0.7, 1.0), 1.0)))
    pm._setParam(sky, "intensity", (FLOAT, 0.8))
    pm._setParam(sky, "casts_shadows", (BOOL, False))
    return sky


def override_materials(pattern):
    """All nodes of that name share one marble, a copy of the material of the first."""
    nodes = [name for name in pm._findByName(pattern) if pm._getPluginType(name) == "GeomNode"]
    if not nodes:
        return
    material = pm._getParam(nodes[0], "material")
    if material is None:
        print "%s has no material to start from" % nodes[0]
        return
    marble = pm._duplicate(material[1], "look@marble")
    pm._setParam(marble, "base_color", (ACOLOR, ((0.9, 0.88, 0.84), 1.0)))
    pm._setParam(marble, "specular_color", (COLOR, (1.0, 1.0, 1.0)))
    pm._setParam(marble, "roughness", (FLOAT, 0.15))
    pm._setParam(marble, "coat", (FLOAT, 0.6))
    for node in nodes:
        pm._setParam(node, "material", (PLUGIN, marble))


def swap_textures():
    """Materials whose base colour is an image get a checker of neutral greys."""
    for material in pm._findByType("MtlSurface"):
        value = pm._getParam(material, "base_color")
        if value[0] != PLUGIN or pm._getPluginType(value[1]) != "TexImage":
            continue
        if not pm._pluginExists("look@tiles"):
            tiles = pm._create("TexChecker", "look@tiles")
            pm._setParam(tiles, "color_a", (COLOR, (0.2, 0.2, 0.2)))
            pm._setParam(tiles, "color_b", (COLOR, (0.6, 0.6, 0.6)))
            pm._setParam(tiles, "size", (FLOAT, 0.5))
        print "%s: %s gives way to look@tiles" % (material, value[1])
        pm._setParam(material, "base_color", (PLUGIN, "look@tiles"))


def number_props(pattern, sky):
    """Mattes go by the number; the sky does not light the props."""
    props = [name for name in pm._findByName(pattern) if pm._getPluginType(name) == "GeomNode"]
    for number, prop in enumerate(props, 1):
        pm._setParam(prop, "object_id", (INT, number))
        pm._setParam(prop, "tag", (STRING, "prop"))
    linkers = pm._findByType("SettingsLightLinker")
    if props and linkers:
        row = (LIST, [(PLUGIN, name) for name in [sky] + props])
        pm._setParam(linkers[0], "ignored_lights", (LIST, [row]))


def working_resolution(width, height):
    """The settings exist once in a scene: an existing one is changed, not made again."""
    outputs = pm._findByType("SettingsOutput")
    output = outputs[0] if outputs else pm._create("SettingsOutput", "look@output")
    pm._setParam(output, "img_width", (INT, width))
    pm._setParam(output, "img_height", (INT, height))


def main():
    parser = argparse.ArgumentParser(description="Gives a scene the studio's look.")
    parser.add_argument("--dim", type=float, default=0.25, help="factor on the intensity of every light")
    parser.add_argument("--statues", default="statue_*", help="the nodes that become marble")
    parser.add_argument("--props", default="prop_*", help="the nodes that are numbered")
    options = parser.parse_args()

    pm._init()
    try:
        sky = relight(options.dim)
        override_materials(options.statues)
        swap_textures()
        number_props(options.props, sky)
        working_resolution(960, 540)
    finally:
        pm._uninit()


main()
