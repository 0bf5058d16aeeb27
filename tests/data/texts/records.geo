; Records of every kind, for the tests of the text descriptions. scripts/make_text_goldens.py reads
; this file and renders what is expected of it; run it after a change.

[Groups Section]
1=Every projection
2=Every datum
3=Every correction
4=Both
5=Odd

[Gp-Every projection]
1=TM grid
2=TM skewed grid
3=UTM grid
4=RD grid
5=Lambert 2 grid
6=Mercator grid
7=Azimuthal grid
8=Gnomonic grid
9=Stereographic grid
10=Cassini grid
11=Hotine A grid
12=Laborde grid
13=Nzmg grid
14=Lambert 1 grid
15=Hotine B grid
16=Polyconic grid
17=Polar grid
System count=17

[Gp-Every datum]
1=Datum BW7
2=Datum Helmert7
3=Datum BW14
4=Datum Helmert14
5=Datum none
6=Datum bare
7=Datum of another method
8=Datum missing
9=Datum unnamed
System count=9

[Gp-Every correction]
1=Nothing stored
2=Geoid by grid
3=Geoid off
4=Geoid without method
5=Geoid by hand
6=Geoid of a number
7=Post shift
8=Post shift with gaps
9=Post shift off
10=Post shift unsure
11=Horizontal alone
12=Vertical alone
13=Both adjusts
14=Adjusts without values
15=Model and file
16=Model off
17=File without model
18=Everything
System count=18

[Gp-Both]
1=Shared name
System count=1

[Gp-Odd]
1=Only listed
2=Odd references
System count=2

; Every projection type, those without formulas included.
[Sys-TM grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
System description=A grid of type 0

[Sys-TM skewed grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM skewed
System description=A grid of type 0

[Sys-UTM grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=UTM 31
System description=A grid of type 1

[Sys-RD grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=RD New
System description=A grid of type 2

[Sys-Lambert 2 grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Lambert 93
System description=A grid of type 3

[Sys-Mercator grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Caspian
System description=A grid of type 4

[Sys-Azimuthal grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Azimuthal
System description=A grid of type 5

[Sys-Gnomonic grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Gnomonic
System description=A grid of type 6

[Sys-Stereographic grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Stereo 70
System description=A grid of type 7

[Sys-Cassini grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Trinidad
System description=A grid of type 8

[Sys-Hotine A grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Borneo A
System description=A grid of type 9

[Sys-Laborde grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Laborde
System description=A grid of type 10

[Sys-Nzmg grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Nzmg
System description=A grid of type 11

[Sys-Lambert 1 grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Nord France
System description=A grid of type 12

[Sys-Hotine B grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Borneo B
System description=A grid of type 13

[Sys-Polyconic grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Brazil
System description=A grid of type 14

[Sys-Polar grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=UPS South
System description=A grid of type 15

; Every datum method.
[Sys-Datum BW7]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Datum Helmert7]
Datumtransform name=WGS84 to Bessel (H7)
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Datum BW14]
Datumtransform name=ITRF to GDA (BW14)
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Datum Helmert14]
Datumtransform name=ITRF to GDA (H14)
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Datum none]
Datumtransform name=Unchanged
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Datum bare]
Datumtransform name=Bare
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Datum of another method]
Datumtransform name=Three shifts
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Datum missing]
Datumtransform name=Nobody's
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Datum unnamed]
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=TM

; Every correction.
[Sys-Nothing stored]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM

[Sys-Geoid by grid]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Geoid model use statu=1
Geoid model grid=C:\\models\\egm2008 (25').gtx
Geoid model method=Grid Model
Chart datum=LAT of the record

[Sys-Geoid off]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Geoid model grid=kept.gtx
Geoid model method=--None--

[Sys-Geoid without method]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Geoid model grid=kept.gtx
Geoid model method=

[Sys-Geoid by hand]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Geoid model use statu=1
Geoid model method=Manual
Manual input value=47.50

[Sys-Geoid of a number]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Geoid model method=0
Geoid model grid=kept.gtx

[Sys-Post shift]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post coorection statu=1
Post X coorection=1.500
Post Y coorection=-0.0
Post Z coorection=+2e0

[Sys-Post shift with gaps]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post coorection statu=TRUE
Post X coorection=
Post Z coorection=not measured

[Sys-Post shift off]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post coorection statu=0
Post X coorection=1.5
Post Y coorection=2
Post Z coorection=3

[Sys-Post shift unsure]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post coorection statu=yes
Post X coorection=1.5

[Sys-Horizontal alone]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post horizontal adjust statu=1
Post vertical adjust statu=0
Post horizonal origin X=155000.00
Post horizonal origin Y=463000
Post horizonal rotation=-1.50
Post horizonal scale=1.0000010
Post vertical origin X=0155000
Post vertical origin Y=463000.0
Post vertical slope X=1e-3
Post vertical slope Y=-2.50

[Sys-Vertical alone]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post horizontal adjust statu=0
Post vertical adjust statu=1
Post horizonal origin X=155000.00
Post horizonal origin Y=463000
Post horizonal rotation=-1.50
Post horizonal scale=1.0000010
Post vertical origin X=0155000
Post vertical origin Y=463000.0
Post vertical slope X=1e-3
Post vertical slope Y=-2.50

[Sys-Both adjusts]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post horizontal adjust statu=true
Post vertical adjust statu=true
Post horizonal origin X=155000.00
Post horizonal origin Y=463000
Post horizonal rotation=-1.50
Post horizonal scale=1.0000010
Post vertical origin X=0155000
Post vertical origin Y=463000.0
Post vertical slope X=1e-3
Post vertical slope Y=-2.50

[Sys-Adjusts without values]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post horizontal adjust statu=1
Post vertical adjust statu=1

[Sys-Model and file]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post coorection file=\\\\server\\grids\\shift.gsb
Post coorection model=NTv2

[Sys-Model off]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post coorection file=kept.gsb
Post coorection model=--None--

[Sys-File without model]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Post coorection file=kept.gsb
Post coorection model=

[Sys-Everything]
Datumtransform name=WGS84 to Bessel (BW7)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=TM
Geoid model use statu=1
Geoid model grid=grid.gtx
Geoid model method=EGM2008
Post coorection statu=1
Post X coorection=1
Post Y coorection=2
Post Z coorection=3
Post coorection file=shift.gsb
Post coorection model=NTv2
Post horizontal adjust statu=1
Post vertical adjust statu=1
Post horizonal origin X=155000.00
Post horizonal origin Y=463000
Post horizonal rotation=-1.50
Post horizonal scale=1.0000010
Post vertical origin X=0155000
Post vertical origin Y=463000.0
Post vertical slope X=1e-3
Post vertical slope Y=-2.50
System description=Every part of it, with a comma, \{b0} and \{a7}

; In both files, with different values.
[Sys-Shared name]
Datumtransform name=Shared datum
Unit name=Shared unit
Ellipsoid name=Shared ellipsoid
Projection name=Shared projection
System description=that of records.geo

; References that lead nowhere, or into the other file.
[Sys-Odd references]
Datumtransform name=Nobody's
Unit name=Nobody's
Ellipsoid name=Nobody's
Projection name=Nobody's

[Prj-TM]
Projection type=0
Projection method=Transverse Mercator
Unit name=Meters
LatOrigin=49
LonOrigin=-2
FalseEasting=400000
FalseNorthing=-100000
ScaleFactor=0.9996012717

[Prj-TM skewed]
Projection type=0
Projection method=Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=15.80827777777778
FalseEasting=1500064.274
FalseNorthing=-667.711
ScaleFactor=1.00000561024
GridSkew=-12.5

[Prj-UTM 31]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=3
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 31     (  3 E)
Hemisphere=Northern

[Prj-RD New]
Projection type=2
Projection method=RD
Unit name=Meters
LatOrigin=52.156160556
LonOrigin=5.387638889
FalseEasting=155000
FalseNorthing=463000
ScaleFactor=0.9999079

[Prj-Lambert 93]
Projection type=3
Projection method=Lambert 2 Parallel
Unit name=Meters
LatOrigin=46.5
LonOrigin=3
FalseEasting=700000
FalseNorthing=6600000
1stParallel=44
2ndParallel=49

[Prj-Caspian]
Projection type=4
Projection method=Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=51
FalseEasting=0
FalseNorthing=0
ScaleFactor=1
GridSkew=0
LatTrueScale=42

[Prj-Azimuthal]
Projection type=5
Projection method=Azimuthal
Unit name=Meters
LatOrigin=10
LonOrigin=20

[Prj-Gnomonic]
Projection type=6
Projection method=Gnomonic
Unit name=Meters
LatOrigin=10
LonOrigin=20

[Prj-Stereo 70]
Projection type=7
Projection method=Stereographic
Unit name=Meters
LatOrigin=46
LonOrigin=25
FalseEasting=500000
FalseNorthing=500000
ScaleFactor=0.99975

[Prj-Trinidad]
Projection type=8
Projection method=Cassini_Soldner
Unit name=Meters
LatOrigin=10.441666666666666
LonOrigin=-61.333333333333336
FalseEasting=430000
FalseNorthing=325000
ScaleFactor=1

[Prj-Borneo A]
Projection type=9
Projection method=Hotine Oblique Mercator(A)
Unit name=Meters
LatOrigin=4
LonOrigin=115
FalseEasting=0
FalseNorthing=0
ScaleFactor=0.99984
InitialAzimuth=53.31580994722222
HotineGridSkew=53.13010236111111

[Prj-Laborde]
Projection type=10
Projection method=Laborde
Unit name=Meters
LatOrigin=-18.9
LonOrigin=46.4

[Prj-Nzmg]
Projection type=11
Projection method=Nzmg
Unit name=Meters
LatOrigin=-41
LonOrigin=173

[Prj-Nord France]
Projection type=12
Projection method=Lambert 1 Parallel
Unit name=Meters
LatOrigin=49.5
LonOrigin=2.3372291666666665
FalseEasting=600000
FalseNorthing=200000
ScaleFactor=0.999877341

[Prj-Borneo B]
Projection type=13
Projection method=Hotine Oblique Mercator(B)
Unit name=Meters
LatOrigin=4
LonOrigin=115
EastingAtCentre=590476.872
NorthingAtCentre=442857.653
ScaleFactor=0.99984
InitialAzimuth=53.31580994722222
HotineGridSkew=53.13010236111111

[Prj-Brazil]
Projection type=14
Projection method=Polyconic
Unit name=Meters
LatOrigin=0
LonOrigin=-54
FalseEasting=5000000
FalseNorthing=10000000

[Prj-UPS South]
Projection type=15
Projection method=Universal Polar Stereographic
Unit name=Meters
FalseEasting=2000000
FalseNorthing=2000000
ScaleFactor=0.994
Hemisphere=Southern

; The carry of the seconds, both hemispheres, a whole number that is large, a short and a long fraction.
[Prj-Numbers]
Projection type=0
Projection method=Transverse Mercator
Unit name=Feet
LatOrigin=-12.9999999999999
LonOrigin=-0.00000000001
FalseEasting=12345678901234
FalseNorthing=1234567.125
ScaleFactor=12.5
GridSkew=-0.0000001

; Keys that are missing or no numbers.
[Prj-Gaps]
Projection type=4
LatOrigin=1,5
LonOrigin=5

[Prj-Gaps of UPS]
Projection type=15
Projection method=Universal Polar Stereographic

[Prj-Gaps of UTM]
Projection type=1
Projection method=Universal Transverse Mercator

[Prj-Type above all]
Projection type=16
Projection method=None such
Unit name=Meters

[Prj-Type below all]
Projection type=-1
Projection method=None such
Unit name=Meters

[Prj-Type missing]
Projection method=Not told
Unit name=Meters
LonOrigin=7

[Prj-Shared projection]
Projection type=0
Projection method=of records.geo
Unit name=unit of records.geo
LatOrigin=1
LonOrigin=1
FalseEasting=1
FalseNorthing=1
ScaleFactor=1

[Dtf-WGS84 to Bessel (BW7)]
Method name=Bursa/Wolfe(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.4171
Shift Y=-50.3319
Shift Z=-465.5524
Rotation X=0.398957388243134
Rotation Y=-0.343987817378283
Rotation Z=1.87740163998045
Scale=-4.0725
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Description=Published, inverted; accuracy 1 m

[Dtf-WGS84 to Bessel (H7)]
Method name=Helmert(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=1e-7
Shift Y=123456789012345678
Shift Z=0.1
Rotation X=1
Rotation Y=-0.5
Rotation Z=0
Scale=100
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Description=Rotations of a coordinate frame

[Dtf-ITRF to GDA (BW14)]
Method name=Bursa/Wolfe(14 Parameters)
Source=WGS84
Target ellipsoid=GRS 1980
Shift X=-565.4171
Shift Y=-50.3319
Shift Z=-465.5524
Rotation X=0.398957388243134
Rotation Y=-0.343987817378283
Rotation Z=1.87740163998045
Scale=-4.0725
Shift rate X=0.00142
Shift rate Y=-0.00134
Shift rate Z=0.0009
Rotation rate X=0.00150379
Rotation rate Y=0.00118346
Rotation rate Z=-0.00120716
Scale rate=0.000109
Epoch=2020
Description=Moves with its plate

[Dtf-ITRF to GDA (H14)]
Method name=Helmert(14 Parameters)
Source=WGS84
Target ellipsoid=GRS 1980
Shift X=-565.4171
Shift Y=-50.3319
Shift Z=-465.5524
Rotation X=0.398957388243134
Rotation Y=-0.343987817378283
Rotation Z=1.87740163998045
Scale=-4.0725
Shift rate X=0.00142
Shift rate Y=-0.00134
Shift rate Z=0.0009
Rotation rate X=0.00150379
Rotation rate Y=0.00118346
Rotation rate Z=-0.00120716
Scale rate=0.000109
Epoch=2020
Description=Moves with its plate

[Dtf-Unchanged]
Method name=No Transformation
Source=WGS84
Target ellipsoid=WGS84
Shift X=-565.4171
Shift Y=-50.3319
Shift Z=-465.5524
Rotation X=0.398957388243134
Rotation Y=-0.343987817378283
Rotation Z=1.87740163998045
Scale=-4.0725
Shift rate X=0.00142
Shift rate Y=-0.00134
Shift rate Z=0.0009
Rotation rate X=0.00150379
Rotation rate Y=0.00118346
Rotation rate Z=-0.00120716
Scale rate=0.000109
Epoch=2020
Description=Positions pass unchanged

[Dtf-Bare]
Method name=No Transformation

[Dtf-Three shifts]
Method name=Molodensky
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=1
Shift Y=2
Shift Z=3
Rotation X=0.25
Rotation Y=0
Rotation Z=0
Scale=0

[Dtf-Other capitals]
Method name=helmert(14 parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.4171
Shift Y=-50.3319
Shift Z=-465.5524
Rotation X=0.398957388243134
Rotation Y=-0.343987817378283
Rotation Z=1.87740163998045
Scale=-4.0725
Shift rate X=0.00142
Shift rate Y=-0.00134
Shift rate Z=0.0009
Rotation rate X=0.00150379
Rotation rate Y=0.00118346
Rotation rate Z=-0.00120716
Scale rate=0.000109
Epoch=2020

[Dtf-Unknown method]
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=1
Shift Y=2

[Dtf-No source]
Method name=Bursa/Wolfe(7 Parameters)
Target ellipsoid=Bessel 1841
Shift X=1,5
Shift Y=x

[Dtf-Old -  name]
Method name=Bursa/Wolfe(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.4171
Shift Y=-50.3319
Shift Z=-465.5524
Rotation X=0.398957388243134
Rotation Y=-0.343987817378283
Rotation Z=1.87740163998045
Scale=-4.0725

[Dtf-Shared datum]
Method name=Bursa/Wolfe(7 Parameters)
Source=WGS84
Target ellipsoid=target of records.geo
Shift X=1
Shift Y=1
Shift Z=1
Rotation X=1
Rotation Y=1
Rotation Z=1
Scale=1
Description=that of records.geo

[Dtf-Half here]
Method name=Helmert(7 Parameters)
Source=source of records.geo
Shift X=1
Shift Y=1
Shift Z=1
Rotation X=1
Rotation Y=1
Rotation Z=1
Scale=1
Description=that of records.geo

[Elp-WGS84]
SemiMajor=6378137
EccSqrd=0.0066943799901413165

[Elp-Bessel 1841]
SemiMajor=6377397.155
EccSqrd=0.006674372231

[Elp-GRS 1980]
SemiMajor=6378137
EccSqrd=0.006694380022900788

[Elp-Sphere]
SemiMajor=6371000
EccSqrd=0

[Elp-Small body]
SemiMajor=5000000
EccSqrd=0.0067

[Elp-Just large enough]
SemiMajor=6000000
EccSqrd=0.0067

[Elp-Just too small]
SemiMajor=5999999.999
EccSqrd=0.0067

[Elp-Eccentricity above one]
SemiMajor=6378137
EccSqrd=1.5

[Elp-Without eccentricity]
SemiMajor=6378137

[Elp-No number]
SemiMajor=6378137,0
EccSqrd=0.0067

[Elp-Hayford \{e9}tendu]
SemiMajor=6.378388e6
EccSqrd=0.0067226700223333

[Elp-Shared ellipsoid]
SemiMajor=6371001
EccSqrd=0.0066

[Units section]
Meters=1.000000,m
US Survey Feet=0.304800609601219,ftUS
Clarke's Links=0.201166,lkCla
Bare=0.5
No number=one,m
No factor=,m
Three items=2,a,b
Shared unit=3,records
