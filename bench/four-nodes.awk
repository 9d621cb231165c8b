# The input of `havuz-cli export calculix` with four-node shells (S4) for the eight-node ones, all its load cases: the
# system that a run of havuz-cli solves, on the same nodes.
/^\*/ { side = /NSET=NSIDE/; shell = /TYPE=S8R/; sub(/S8R/, "S4") }
side { next }
shell && !/^\*/ { split($0, f, /, */); $0 = f[1] ", " f[2] ", " f[3] ", " f[4] ", " f[5] }
{ print }
