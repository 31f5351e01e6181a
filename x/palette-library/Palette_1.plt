brindle-palette 1
palette 8adc2ec46153f313 colour "Palette_1"
26bd576cb30bbd35 solid "Default" 000000ff
beae9b616c189c12 linear "Sample-Gradient" 0 ff0000ff 1 0000ffff
431617944b083e68 texture "Sample-Texture" single "431617944b083e68.png"
