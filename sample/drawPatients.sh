#!/bin/bash
# Draws the portraits of the sample patients into Patients/ beside this script. Needs ImageMagick's convert.
# All coordinates are pixels of the finished picture, 964 x 612, which is the shape of the picture's place on
# the screen. Shapes are drawn three times as large and scaled down for smooth edges.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
readonly width=964 height=612 oversize=3
drawing=

add() { drawing+="$*"$'\n'; }

# A filled outline: colour, path.
shape() { add "stroke none fill '$1' path '$2'"; }

# The same, see-through: colour, opacity, path.
veil() { add "stroke none fill '$1' fill-opacity $2 path '$3' fill-opacity 1"; }

# A pen line: colour, thickness, path.
line() { add "fill none stroke '$1' stroke-width $2 stroke-linecap round stroke-linejoin round path '$3' stroke none"; }

# Colour, centre, radii.
oval() { add "stroke none fill '$1' ellipse $2 $3 0,360"; }

# Wall and the round light behind the head: colours.
scene() {
    add "stroke none fill '$1' rectangle 0,0 $width,$height"
    oval "$2" 482,330 268,268
}

# Shoulders: colour, shade of the folds.
torso() {
    shape "$1" 'M 150,620 C 156,540 214,500 318,474 C 376,460 408,446 420,424 L 544,424 C 556,446 588,460 646,474
        C 750,500 808,540 814,620 Z'
    line "$2" 4 'M 262,620 C 262,590 256,566 246,548'
    line "$2" 4 'M 702,620 C 702,590 708,566 718,548'
}

# Neck and the shadow of the chin: skin, its shade.
neck() {
    shape "$1" 'M 430,340 L 534,340 C 534,400 538,424 556,446 C 534,486 430,486 408,446 C 426,424 430,400 430,340 Z'
    shape "$2" 'M 430,352 L 534,352 C 533,388 534,402 536,412 C 510,436 454,436 428,412 C 430,402 431,388 430,352 Z'
}

# Ears and face, the right half in a light shade: skin, its shade.
head() {
    for x in 383 581; do
        oval "$1" $x,276 17,29
        oval "$2" $x,278 8,17
    done
    shape "$1" 'M 386,246 C 386,152 428,124 482,124 C 536,124 578,152 578,246 C 578,322 556,372 522,396
        C 502,411 462,411 442,396 C 408,372 386,322 386,246 Z'
    veil "$2" 0.28 'M 482,124 C 536,124 578,152 578,246 C 578,322 556,372 522,396 C 512,404 498,408 482,408
        C 520,388 540,330 540,256 C 540,190 524,140 482,124 Z'
}

# Eyes with lids: colour of the iris, colour of the lid line.
eyes() {
    local x
    for x in 444 520; do
        shape '#fbf8f4' "M $((x - 18)),266 C $((x - 9)),253 $((x + 9)),253 $((x + 18)),266
            C $((x + 9)),275 $((x - 9)),275 $((x - 18)),266 Z"
        oval "$1" $x,264 8.5,9.5
        oval '#1d1715' $x,264 4.6,5.2
        oval '#ffffff' $((x + 3)),260 2.4,2.4
        line "$2" 4.5 "M $((x - 20)),265 C $((x - 10)),251 $((x + 10)),251 $((x + 20)),265"
    done
}

# Brows: colour, thickness.
brows() {
    line "$1" "$2" 'M 420,238 C 432,228 450,227 466,233'
    line "$1" "$2" 'M 498,233 C 514,227 532,228 544,238'
}

# Nose: shade of the skin.
nose() {
    line "$1" 4.5 'M 487,264 C 489,286 497,300 496,312 C 495,322 482,325 470,319'
}

# Calm mouth: colour of the lips, colour of the line between them.
mouth() {
    shape "$1" 'M 448,351 C 460,343 472,341 482,345 C 492,341 504,343 516,351 C 504,366 460,366 448,351 Z'
    line "$2" 3 'M 449,351 C 462,355 502,355 515,351'
}

# A man's mouth: the line alone with the shade of the lower lip.
plainMouth() {
    line "$2" 4.5 'M 450,350 C 466,357 498,357 514,350'
    line "$1" 4 'M 468,367 C 476,370 488,370 496,367'
}

# Warmth on the cheeks: colour, opacity.
cheeks() {
    add "stroke none fill '$1' fill-opacity $2 ellipse 424,312 21,15 0,360 ellipse 540,312 21,15 0,360 fill-opacity 1"
}

# Lines of age on the brow, at the eyes and beside the mouth: shade of the skin.
ageLines() {
    line "$1" 3 'M 428,300 C 436,305 450,305 458,300'
    line "$1" 3 'M 506,300 C 514,305 528,305 536,300'
    line "$1" 3 'M 452,322 C 441,330 435,341 434,352'
    line "$1" 3 'M 512,322 C 523,330 529,341 530,352'
    line "$1" 3 'M 440,186 C 462,181 502,181 524,186'
    line "$1" 3 'M 448,203 C 468,199 496,199 516,203'
}

glasses() {
    line "$1" 5 'M 410,256 C 410,244 416,240 428,240 L 458,240 C 470,240 476,244 476,258 C 476,282 462,290 443,290
        C 422,290 410,280 410,256 Z'
    line "$1" 5 'M 554,256 C 554,244 548,240 536,240 L 506,240 C 494,240 488,244 488,258 C 488,282 502,290 521,290
        C 542,290 554,280 554,256 Z'
    line "$1" 5 'M 476,254 C 480,250 484,250 488,254'
    line "$1" 5 'M 410,252 L 388,246'
    line "$1" 5 'M 554,252 L 576,246'
}

# Writes the drawing to Patients/NAME.png. Dates stay out, so that the same drawing gives the same bytes.
finish() {
    convert -size $((width * oversize))x$((height * oversize)) xc:white -draw "scale $oversize,$oversize
$drawing" -filter Box -resize ${width}x$height -depth 8 -strip -define png:exclude-chunks=date,time \
        -define png:compression-level=9 "PNG24:$here/Patients/$1.png"
    drawing=
}

lindqvist() {
    local skin='#f3cdb4' shade='#dba98c' hair='#b5653a' dark='#94502d'
    scene '#8fb8b3' '#b4d3cd'
    shape "$dark" 'M 362,250 C 352,140 410,84 482,84 C 556,84 614,140 602,250 C 604,330 628,392 634,462
        C 600,490 560,470 556,400 L 408,400 C 404,470 364,490 330,462 C 336,392 360,330 362,250 Z'
    torso '#3f6f78' '#335b63'
    neck "$skin" "$shade"
    shape '#f4efe6' 'M 404,440 C 424,482 458,500 482,504 C 506,500 540,482 560,440 L 584,456 C 566,500 528,528 482,532
        C 436,528 398,500 380,456 Z'
    head "$skin" "$shade"
    cheeks '#e58f78' 0.35
    eyes '#5b7f6a' '#6b3b22'
    brows '#94502d' 6
    nose "$shade"
    mouth '#cf7467' '#a9554b'
    shape "$hair" 'M 372,300 C 356,190 396,98 484,98 C 572,98 608,190 592,300 C 590,262 580,222 556,190
        C 520,202 462,190 436,158 C 424,196 392,222 382,252 C 376,270 374,284 372,300 Z'
    shape "$hair" 'M 374,250 C 372,330 352,400 346,462 C 366,474 388,466 396,444 C 382,400 378,330 388,262 Z'
    shape "$hair" 'M 590,250 C 592,330 612,400 618,462 C 598,474 576,466 568,444 C 582,400 586,330 576,262 Z'
    line "$dark" 3 'M 440,128 C 452,160 486,180 530,184'
    finish lindqvist
}

okafor() {
    local skin='#7b4b33' shade='#5f3725' hair='#1f1816'
    scene '#d9b26f' '#e8cb95'
    torso '#34506e' '#28405a'
    neck "$skin" "$shade"
    shape '#e9e4da' 'M 412,440 C 430,476 460,490 482,494 C 504,490 534,476 552,440 L 570,452 C 548,498 510,512 482,514
        C 454,512 416,498 394,452 Z'
    head "$skin" "$shade"
    shape "$hair" 'M 384,252 C 376,150 420,104 482,104 C 544,104 588,150 580,252 C 576,224 570,196 554,174
        C 520,162 444,162 410,174 C 394,196 388,224 384,252 Z'
    shape "$hair" 'M 385,262 C 390,330 404,376 440,400 C 462,416 502,416 524,400 C 560,376 574,330 579,262
        C 572,300 560,326 540,334 C 516,324 448,324 424,334 C 404,326 392,300 385,262 Z'
    shape "$skin" 'M 446,344 C 462,336 502,336 518,344 C 516,366 500,374 482,374 C 464,374 448,366 446,344 Z'
    eyes '#3a2417' '#1f1816'
    brows '#1f1816' 8
    nose "$shade"
    plainMouth '#a3604e' '#4a261b'
    finish okafor
}

lindqvist
okafor
