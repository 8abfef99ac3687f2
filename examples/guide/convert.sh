# What README.md shows of the converter; the test of the documents runs it where order.xml lies.
set -eu
# snippet: convert
tovikxml-convert --typed --pretty order.xml order.json
tovikxml-convert order.xml order.fi
# end snippet
echo '== json =='
cat order.json
echo '== hex =='
od -A n -t x1z order.fi | head -3
echo '== sizes =='
wc -c order.xml order.json order.fi | sed "/total/d"
