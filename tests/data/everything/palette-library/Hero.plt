brindle-palette 1
palette a8fa6ba3f0ea7642 colour "Hero"
9bc4d0ed001606dc solid "Default" 000000ff
20a591b4e15bc764 solid "Skin" ffd9b8ff
9814efde3b0f541e linear "Sky" 0 1e5ac8ff 0.7 f0783cff 1 fff0c8ff
fef60aa35c237bf1 solid "Line \"black\"" 00000080
c20fb6d4b7bccc77 texture "Paper" single "c20fb6d4b7bccc77.png"
