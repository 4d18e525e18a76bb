# The layers of src/, lowest first: the one place their order is written down. Each entry is a
# folder of src/, or several folders joined by "|" that sit side by side and know nothing of each
# other. A file may include headers of its own folder and of any folder on an earlier entry,
# never one on its own entry or a later one. "." is src/ itself (main.cpp), the very top.
#
# src/CMakeLists.txt links each layer's library only to the layers below it, so an upward
# include also fails to link; cmake/CheckLayers.cmake (the "layering" test) names the file and
# line of any include that breaks the order.
set(VELLUMAR_LAYERS
    "common"
    "config"
    "textures|sound"
    "app"
    "simulator|autorandom"
    "ui|cli"
    "."
)

