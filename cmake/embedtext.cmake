# cmake -DIN=file -DOUT=header -P embedtext.cmake: the file's bytes as the array
# messagetext, with a zero behind them.
file(READ ${IN} bytes HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
string(REGEX REPLACE "((.......){12})" "\\1\n    " bytes "${bytes}")
file(WRITE ${OUT} "// Made from the message catalogue by the build.\n#pragma once\n\nconstexpr char messagetext[] = {\n    ${bytes}0};\n")
