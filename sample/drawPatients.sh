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

# Ears: skin, its shade.
ears() {
    local x
    for x in 383 581; do
        oval "$1" $x,276 17,29
        oval "$2" $x,278 8,17
    done
}

# Face, the right side in a light shade: skin, its shade.
head() {
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
    shape "$1" 'M 448,347 C 460,343 473,340 482,344 C 491,340 504,343 516,347 C 504,368 460,368 448,347 Z'
    line "$2" 3 'M 446,346 C 462,356 502,356 518,346'
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

# A round collar close to the neck: colour.
roundCollar() {
    shape "$1" 'M 396,448 C 420,518 544,518 568,448 L 554,436 C 532,482 432,482 410,436 Z'
}

# A shirt with its two collar points and a row of buttons: colour, shade.
shirt() {
    shape "$1" 'M 404,436 L 408,446 C 430,486 534,486 556,446 L 560,436 L 596,620 L 368,620 Z'
    line "$2" 3 'M 482,500 L 482,620'
    shape "$1" 'M 422,416 C 414,424 404,434 392,448 L 390,458 L 436,524 L 482,486 C 448,482 420,458 422,416 Z'
    shape "$1" 'M 542,416 C 550,424 560,434 572,448 L 574,458 L 528,524 L 482,486 C 516,482 544,458 542,416 Z'
    line "$2" 3 'M 390,458 L 436,524 L 482,486 L 528,524 L 574,458'
}

# A jacket or cardigan open over the shirt: colour, shade of its edge.
openFront() {
    shape "$1" 'M 400,444 C 376,462 340,470 318,474 C 214,500 156,540 150,620 L 452,620 C 436,560 414,500 400,444 Z'
    shape "$1" 'M 564,444 C 588,462 624,470 646,474 C 750,500 808,540 814,620 L 512,620 C 528,560 550,500 564,444 Z'
    line "$2" 4 'M 400,446 C 414,500 436,560 452,620'
    line "$2" 4 'M 564,446 C 550,500 528,560 512,620'
    line "$2" 4 'M 262,620 C 262,590 256,566 246,548'
    line "$2" 4 'M 702,620 C 702,590 708,566 718,548'
}

# What follows, up to `natural`, is drawn broader or taller about the chin: the two factors.
build() { add "push graphic-context translate 482,408 scale $1,$2 translate -482,-408"; }
natural() { add 'pop graphic-context'; }

# Writes the drawing to Patients/NAME.png. Dates stay out, so that the same drawing gives the same bytes.
finish() {
    convert -size $((width * oversize))x$((height * oversize)) xc:white -draw "scale $oversize,$oversize
$drawing" -filter Box -resize ${width}x$height -depth 8 -strip -define png:exclude-chunks=date,time \
        -define png:compression-level=9 "PNG24:$here/Patients/$1.png"
    drawing=
}

lindqvist() {
    local skin='#f3cdb4' shade='#dba98c' hair='#b5653a' dark='#8f4c2a'
    scene '#8fb8b3' '#b4d3cd'
    shape "$dark" 'M 384,260 L 580,260 L 590,470 L 374,470 Z'
    torso '#3f6f78' '#335b63'
    neck "$skin" "$shade"
    roundCollar '#f4efe6'
    head "$skin" "$shade"
    cheeks '#e58f78' 0.3
    eyes '#5b7f6a' '#6b3b22'
    brows "$dark" 6
    nose "$shade"
    mouth '#cf7467' '#a9554b'
    shape "$hair" 'M 452,146 C 430,196 400,226 396,268 C 392,310 398,350 408,392 C 416,428 408,466 390,480
        C 366,490 342,482 334,468 C 352,410 360,330 364,250 C 366,150 414,90 484,90 C 556,90 600,150 602,250
        C 606,330 614,410 630,468 C 622,482 598,490 574,480 C 556,466 548,428 556,392 C 566,350 572,310 568,268
        C 564,232 548,214 536,198 C 500,190 466,172 452,146 Z'
    line "$dark" 3 'M 452,146 C 448,128 452,112 462,98'
    line "$dark" 3 'M 378,280 C 376,340 372,400 358,458'
    line "$dark" 3 'M 586,280 C 588,340 594,400 606,458'
    finish lindqvist
}

okafor() {
    local skin='#7b4b33' shade='#5f3725' hair='#1f1816'
    scene '#d9b26f' '#e8cb95'
    torso '#34506e' '#28405a'
    build 1.06 1
    neck "$skin" "$shade"
    natural
    roundCollar '#28405a'
    build 1.06 1
    ears "$skin" "$shade"
    head "$skin" "$shade"
    shape "$hair" 'M 384,256 C 376,150 420,108 482,108 C 544,108 588,150 580,256 C 576,224 570,196 554,178
        C 520,164 444,164 410,178 C 394,196 388,224 384,256 Z'
    shape "$hair" 'M 384,256 C 388,330 404,376 440,400 C 462,416 502,416 524,400 C 560,376 576,330 580,256
        C 574,300 562,326 542,334 C 516,322 448,322 422,334 C 402,326 390,300 384,256 Z'
    shape "$skin" 'M 446,345 C 462,337 502,337 518,345 C 516,366 500,374 482,374 C 464,374 448,366 446,345 Z'
    eyes '#3a2417' "$hair"
    brows "$hair" 8
    nose "$shade"
    plainMouth '#a3604e' '#4a261b'
    natural
    finish okafor
}

zhou() {
    local skin='#f4d3b0' shade='#dcae88' hair='#25212a' gloss='#3d3745'
    scene '#b1a6cb' '#cdc5e0'
    shape "$hair" 'M 372,240 L 592,240 L 598,390 C 590,412 560,420 540,412 L 424,412 C 404,420 374,412 366,390 Z'
    torso '#c98f3d' '#ad7830'
    neck "$skin" "$shade"
    shape '#f1e8da' 'M 420,398 C 450,420 514,420 544,398 C 548,426 556,440 566,452 C 540,490 424,490 398,452
        C 408,440 416,426 420,398 Z'
    line '#dccfba' 3 'M 414,434 C 446,456 518,456 550,434'
    build 0.97 0.98
    head "$skin" "$shade"
    cheeks '#eba08a' 0.35
    eyes '#3b2a20' "$hair"
    brows "$hair" 5.5
    nose "$shade"
    mouth '#cc6c66' '#a44f4b'
    natural
    shape "$hair" 'M 484,98 C 404,98 364,160 364,248 L 358,386 C 358,408 376,418 394,412 C 406,406 408,396 404,380
        C 394,336 392,284 398,222 C 426,206 538,206 566,222 C 572,284 570,336 560,380 C 556,396 558,406 570,412
        C 588,418 606,408 606,386 L 600,248 C 600,160 564,98 484,98 Z'
    line "$gloss" 4 'M 410,150 C 430,130 456,122 482,122'
    line "$gloss" 3 'M 448,210 C 448,186 454,166 464,150'
    line "$gloss" 3 'M 522,210 C 522,186 518,166 510,150'
    finish zhou
}

hale() {
    local skin='#efc9b1' shade='#cf9f86' hair='#e8e5df' dark='#c4bfb7'
    scene '#93a5b8' '#b7c6d5'
    torso '#6d5b4d' '#594a3e'
    neck "$skin" "$shade"
    shirt '#dce5ec' '#b5c3cf'
    openFront '#6d5b4d' '#594a3e'
    ears "$skin" "$shade"
    head "$skin" "$shade"
    cheeks '#dd8f7c' 0.3
    shape "$hair" 'M 384,268 C 362,214 372,150 424,124 C 470,98 548,104 574,158 C 588,190 590,234 580,268
        C 574,244 570,222 560,206 C 556,178 540,158 516,154 C 486,142 448,148 426,166 C 408,182 404,204 404,212
        C 394,228 388,246 384,268 Z'
    line "$dark" 3 'M 424,150 C 458,128 510,128 544,152'
    line "$dark" 3 'M 390,226 C 388,204 392,184 402,168'
    line "$dark" 3 'M 574,226 C 576,204 572,186 564,172'
    ageLines "$shade"
    eyes '#5d7f9a' '#7a5a4a'
    brows '#d3cec6' 8
    nose "$shade"
    plainMouth '#cc8c79' '#96614f'
    shape "$hair" 'M 482,330 C 464,324 440,334 430,354 C 452,350 472,350 482,346 C 492,350 512,350 534,354
        C 524,334 500,324 482,330 Z'
    glasses '#4a4440'
    finish hale
}

rahal() {
    local skin='#dca882' shade='#ba8560' scarf='#7b4a68' dark='#623953'
    scene '#dcbfa7' '#edd9c8'
    torso '#4c5a52' '#3d4942'
    neck "$skin" "$shade"
    head "$skin" "$shade"
    cheeks '#d0785f' 0.25
    eyes '#4a3020' '#33211a'
    brows '#3a261d' 6.5
    nose "$shade"
    mouth '#b9625a' '#934740'
    add "fill-rule evenodd"
    shape "$dark" 'M 482,104 C 412,104 374,164 376,258 C 378,350 430,424 482,424 C 534,424 586,350 588,258
        C 590,164 552,104 482,104 Z M 482,158 C 532,158 566,196 566,258 C 566,336 526,398 482,398
        C 438,398 398,336 398,258 C 398,196 432,158 482,158 Z'
    shape "$scarf" 'M 482,80 C 394,80 350,150 352,252 C 354,340 372,392 352,452 C 330,512 300,520 280,560
        C 330,600 420,616 500,612 C 580,608 650,588 690,556 C 662,520 634,512 612,452 C 592,392 610,340 612,252
        C 614,150 570,80 482,80 Z M 482,142 C 540,142 576,190 576,258 C 576,344 530,404 482,404
        C 434,404 388,344 388,258 C 388,190 424,142 482,142 Z'
    add "fill-rule nonzero"
    line "$dark" 4 'M 396,356 C 420,432 500,470 600,474'
    line "$dark" 4 'M 378,420 C 410,490 500,530 626,524'
    line "$dark" 4 'M 352,480 C 380,540 450,580 520,586'
    line "$dark" 4 'M 592,300 C 588,360 562,410 524,434'
    finish rahal
}

marquez() {
    local skin='#d8a27a' shade='#b57e57' hair='#2f221d' curl='#46342c' x y
    scene '#a3c295' '#c5dbb9'
    shape '#7e3f3d' 'M 330,500 C 340,430 390,392 424,388 L 540,388 C 574,392 624,430 634,500 Z'
    torso '#a3524e' '#87423f'
    neck "$skin" "$shade"
    roundCollar '#f0ebe2'
    shape '#a3524e' 'M 424,400 C 380,418 336,452 330,500 C 360,540 430,560 482,566 C 440,530 404,480 424,400 Z'
    shape '#a3524e' 'M 540,400 C 584,418 628,452 634,500 C 604,540 534,560 482,566 C 524,530 560,480 540,400 Z'
    line '#87423f' 4 'M 424,402 C 406,480 440,530 482,566'
    line '#87423f' 4 'M 540,402 C 558,480 524,530 482,566'
    line '#f0ebe2' 5 'M 446,534 C 444,560 448,580 444,604'
    line '#f0ebe2' 5 'M 518,534 C 520,560 516,580 520,604'
    build 0.98 1
    ears "$skin" "$shade"
    head "$skin" "$shade"
    cheeks '#cf7a58' 0.25
    eyes '#4a2f1f' "$hair"
    brows "$hair" 7
    nose "$shade"
    plainMouth '#bf7f66' '#7e4632'
    for place in 398,206 406,170 430,142 462,128 500,126 534,142 558,170 566,206 440,172 478,164 516,166 546,188; do
        oval "$hair" $place 31,29
    done
    for place in 410,166 446,138 486,134 526,144 552,176; do
        x=${place%,*} y=${place#*,}
        line "$curl" 4 "M $((x - 13)),$((y + 4)) C $((x - 9)),$((y - 12)) $((x + 10)),$((y - 12)) $((x + 12)),$((y + 3))"
    done
    natural
    finish marquez
}

baptiste() {
    local skin='#8d5d42' shade='#6d4531' hair='#b3aea8' dark='#8f8a85'
    scene '#a4bfd2' '#c8dbe8'
    oval "$hair" 482,92 58,44
    line "$dark" 3 'M 440,92 C 456,72 506,70 524,90'
    torso '#8a6a9c' '#735783'
    neck "$skin" "$shade"
    roundCollar '#735783'
    for place in 414,459 428,472 445,481 463,486 482,488 501,486 519,481 536,472 550,459; do
        oval '#f5f0e8' $place 7.5,7.5
    done
    build 1.03 0.98
    ears "$skin" "$shade"
    head "$skin" "$shade"
    cheeks '#b0593f' 0.25
    shape "$hair" 'M 384,266 C 372,160 416,106 482,106 C 548,106 592,160 580,266 C 576,226 560,192 532,172
        C 508,160 456,160 432,172 C 404,192 388,226 384,266 Z'
    line "$dark" 3 'M 482,112 L 482,160'
    line "$dark" 3 'M 440,124 C 430,144 420,162 414,180'
    line "$dark" 3 'M 524,124 C 534,144 544,162 550,180'
    ageLines "$shade"
    eyes '#3a2417' '#2b1a13'
    brows '#7d7772' 6
    nose "$shade"
    mouth '#a2574c' '#733a33'
    oval '#e3c06a' 383,316 7,7
    oval '#e3c06a' 581,316 7,7
    natural
    finish baptiste
}

nair() {
    local skin='#b9835b' shade='#956440' hair='#26201e' grey='#8c8681'
    scene '#d19c82' '#e5bfab'
    torso '#4b5158' '#3b4046'
    build 1.02 1
    neck "$skin" "$shade"
    natural
    shirt '#f2f0ea' '#cfcac0'
    shape '#7c2f36' 'M 466,496 L 482,486 L 498,496 L 492,520 L 506,612 L 458,612 L 472,520 Z'
    openFront '#4b5158' '#3b4046'
    shape '#3b4046' 'M 400,446 L 372,468 L 392,520 L 378,534 L 450,620 C 436,560 414,500 400,446 Z'
    shape '#3b4046' 'M 564,446 L 592,468 L 572,520 L 586,534 L 514,620 C 528,560 550,500 564,446 Z'
    build 1.02 1
    ears "$skin" "$shade"
    head "$skin" "$shade"
    shape "$hair" 'M 384,262 C 368,180 394,106 486,104 C 572,102 594,176 580,262 C 576,236 570,214 560,196
        C 536,200 470,196 434,160 C 420,178 404,198 398,214 C 392,228 388,244 384,262 Z'
    shape "$grey" 'M 384,266 C 379,244 378,222 382,202 C 390,206 396,210 399,212 C 392,228 388,244 384,266 Z'
    shape "$grey" 'M 580,266 C 585,244 586,222 582,202 C 574,200 566,198 560,196 C 570,214 576,236 580,266 Z'
    line '#403734' 3 'M 434,160 C 448,138 476,124 508,122'
    line "$shade" 3 'M 428,300 C 436,305 450,305 458,300'
    line "$shade" 3 'M 506,300 C 514,305 528,305 536,300'
    line "$shade" 3 'M 446,205 C 466,201 498,201 518,205'
    eyes '#3d281b' "$hair"
    brows "$hair" 8
    nose "$shade"
    plainMouth '#a8654f' '#683a29'
    shape "$hair" 'M 482,331 C 466,326 444,334 436,350 C 454,346 472,347 482,344 C 492,347 510,346 528,350
        C 520,334 498,326 482,331 Z'
    natural
    finish nair
}

for person in lindqvist okafor zhou hale rahal marquez baptiste nair; do "$person"; done
