brindle-palette 1
palette 58821cc5ec44662f colour "Props"
bb15e2d4868cff34 solid "Default" 000000ff
