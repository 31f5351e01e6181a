brindle-palette 1
palette d11e11ccae2b09a3 colour "Palette"
bbc870c4c026f4f4 solid "Default" 000000ff
e4ea0a71195a610e linear "Sample-Gradient" 0 ff0000ff 1 0000ffff
a279910d9c1aed1d texture "Sample-Texture" single "a279910d9c1aed1d.png"
