# Every step of a calculation is rounded as it is written. Compilers fuse a multiplication with the
# addition behind it where the processor can, as all of arm64 do; period numbers, which are read off
# single precision, would then name the wrong row.
add_compile_options(-ffp-contract=off)
