# cross-check's comparison. Files: the .inp (cases in their order, thickness by set), nodes.csv, corners.csv, the .dat.
function abs(x) { return x < 0 ? -x : x }
# 1 where the corners of a slab's mesh run anti-clockwise from above, else -1: which of its sides CalculiX calls the upper.
function upward(e) {
    return (cx[e, 3] - cx[e, 1]) * (cy[e, 4] - cy[e, 2]) < (cy[e, 3] - cy[e, 1]) * (cx[e, 4] - cx[e, 2]) ? -1 : 1
}
FNR == 1 { file++ }
file == 1 {
    if ($0 ~ /^\*\* CASE /) key[++steps] = $3
    if ($0 ~ /^\*SHELL SECTION/) { match($0, /PANEL_[0-9]+/); set = substr($0, RSTART, RLENGTH); want = 1; next }
    if (want) { thickness[set] = $1; want = 0 }
    if ($0 ~ /^\*ELEMENT/) triangles = $0 ~ /TYPE=S6/
    else if ($0 ~ /^\*/) triangles = 0
    else if (triangles) { split($0, f, ","); triangle[f[1]] = 1 }
    next
}
file == 2 { # node,x,y,z,case,ux,uy,uz,...
    split($0, f, ",")
    if (FNR > 1) { ux[f[5], f[1]] = f[6]; uy[f[5], f[1]] = f[7]; uz[f[5], f[1]] = f[8]; x[f[1]] = f[2]; y[f[1]] = f[3] }
    next
}
file == 3 { # mesh,corner,node,panel,kind,case,N11,N22,N12,M11,M22,...
    split($0, f, ",")
    if (FNR > 1 && f[2] == 0) { m11[f[6], f[1]] = f[10]; m22[f[6], f[1]] = f[11]; kind[f[1]] = f[5]; panel[f[1]] = f[4] }
    if (FNR > 1 && f[2] > 0) { cx[f[1], f[2]] = x[f[3]]; cy[f[1], f[2]] = y[f[3]] }
    next
}
/displacements/ {
    step++; stresses = 0
    if (step == 1) { for (n in x) { cx0 += x[n]; cy0 += y[n]; many++ } cx0 /= many; cy0 /= many }
    next
}
/stresses/ { stresses = 1; match($0, /PANEL_[0-9]+/); set = substr($0, RSTART, RLENGTH); t = thickness[set]; next }
NF == 4 && !stresses {
    k = key[step]
    d = sqrt(($2 - ux[k, $1]) ^ 2 + ($3 - uy[k, $1]) ^ 2 + ($4 - uz[k, $1]) ^ 2)
    u = sqrt(ux[k, $1] ^ 2 + uy[k, $1] ^ 2 + uz[k, $1] ^ 2)
    if (d > farthest[k]) farthest[k] = d
    if (u > greatest[k]) greatest[k] = u
    v = sqrt($2 ^ 2 + $3 ^ 2 + $4 ^ 2)
    if (v > theirs[k]) theirs[k] = v
    next
}
# Of a quadrilateral points 1 to 4 lie below, 5 to 8 above, at t/(2 sqrt 3); of a triangle 1 to 3 below, 7 to 9 above, at
# sqrt(.6) t/2. sigma = 12 M z / t^3.
NF >= 8 && stresses { # element, point, sxx, syy, szz, sxy, sxz, syz
    k = key[step]
    if ($1 in triangle) f0 = ($2 > 6 ? 1 : $2 < 4 ? -1 : 0) * t * t / (36 * sqrt(.6))
    else f0 = ($2 > 4 ? 1 : -1) * t * t * sqrt(3) / 12 / 4
    if (kind[$1] != 1) f0 *= upward($1)
    # direction 1: X of slabs, around a circular pool, along the wall; direction 2: Y, outward, upward
    e = $1
    if (kind[e] == 1) {
        dx = cx[e, 2] - cx[e, 1]; dy = cy[e, 2] - cy[e, 1]; l = dx * dx + dy * dy
        if (l < 1e-8) { dx = cx[e, 3] - cx[e, 2]; dy = cy[e, 3] - cy[e, 2]; l = dx * dx + dy * dy }
        s1 = ($3 * dx * dx + $4 * dy * dy + 2 * $6 * dx * dy) / l
        s2 = $5
    } else if (circular) {
        dx = -((cy[e, 1] + cy[e, 3]) / 2 - cy0); dy = (cx[e, 1] + cx[e, 3]) / 2 - cx0; l = dx * dx + dy * dy
        s1 = ($3 * dx * dx + $4 * dy * dy + 2 * $6 * dx * dy) / l
        s2 = ($3 * dy * dy + $4 * dx * dx - 2 * $6 * dx * dy) / l
    } else { s1 = $3; s2 = $4 }
    a11[k, e] += f0 * s1; a22[k, e] += f0 * s2
    seen[k, e] = 1
}
END {
    # CalculiX's upper side of a wall is that of its normal: one sign for all meshes of a panel
    for (ke in seen) {
        split(ke, p, SUBSEP)
        dot[panel[p[2]]] += a11[ke] * m11[ke] + a22[ke] * m22[ke]
    }
    for (ke in seen) {
        split(ke, p, SUBSEP); k = p[1]; e = p[2]
        s = dot[panel[e]] < 0 ? -1 : 1
        d1 = abs(s * a11[ke] - m11[ke]); d2 = abs(s * a22[ke] - m22[ke])
        if (d1 > mfar[k]) mfar[k] = d1
        if (d2 > mfar[k]) mfar[k] = d2
        if (abs(m11[ke]) > mgreat[k]) mgreat[k] = abs(m11[ke])
        if (abs(m22[ke]) > mgreat[k]) mgreat[k] = abs(m22[ke])
        sum2[k] += d1 * d1 + d2 * d2; all2[k] += m11[ke] ^ 2 + m22[ke] ^ 2; their2[k] += a11[ke] ^ 2 + a22[ke] ^ 2
        values[k] += 2
    }
    status = 0
    for (i = 1; i <= steps; i++) {
        k = key[i]
        printf "  %-2s displacement %9.6f mm, CalculiX %9.6f mm, differs by %5.2f %%; ", k, 1000 * greatest[k],
            1000 * theirs[k], 100 * farthest[k] / greatest[k]
        if (mgreat[k] < 1e-9) print "no moment"
        else printf "moment %8.4f t.m/m, differs by %5.2f %%, %5.2f %% in the mean; mean %9.6f, CalculiX %9.6f\n", mgreat[k],
            100 * mfar[k] / mgreat[k], 100 * sqrt(sum2[k] / all2[k]), sqrt(all2[k] / values[k]), sqrt(their2[k] / values[k])
        if (100 * farthest[k] / greatest[k] > limit) status = 1
    }
    exit status
}
